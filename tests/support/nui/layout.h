#pragma once

#include "nui/reader/layout_loader.h"
#include "nui/widgets/container.h"
#include "support/temp_folder.h"

#include <string>
#include <string_view>

namespace nui::test {

/// UTF-8 path of a file as the toolkit opens it: the host's own.
[[nodiscard]] std::string hostPath(const nrd::misc::path& file);

/// An engine without windows whose display is 2000 by 500 pixels, of scale 2, with texts of
/// scale 3; gone with the object.
class MeasuringEngine {
public:
    MeasuringEngine();
    ~MeasuringEngine();
    MeasuringEngine(const MeasuringEngine&) = delete;
    MeasuringEngine& operator=(const MeasuringEngine&) = delete;
};

/// The widgets of a layout file written for the test.
class LayoutText {
public:
    /// A whole layout file.
    explicit LayoutText(std::string_view json);

    /// Empty for an id that the file doesn't have.
    [[nodiscard]] WidgetPtr find(const std::string& id) const;

private:
    nrd::test::temp_folder folder_;
    WidgetMap widgets_;
};

/// A container built from one widget object of a layout file, not laid out yet. Keys may be
/// written with single quotation marks.
[[nodiscard]] std::shared_ptr<Container> containerOf(std::string widgetJson);

/// The first pass as a screen gets it: sizes, once more if content is not known yet, places.
void layOut(Container& root);

/// A line "name x y width height" a widget, indented by depth; local positions.
[[nodiscard]] std::string rectangles(const Widget& root);

/// containerOf, layOut and rectangles in one.
[[nodiscard]] std::string laidOut(const std::string& widgetJson);

} // namespace nui::test
