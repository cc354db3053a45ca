#pragma once

#include "nui/widgets/popup_list.h"
#include "nui/widgets/screen.h"
#include "support/nui/event_log.h"
#include "support/nui/picture_folder.h"
#include "support/nui/running_toolkit.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace nui::test {

/// Controls on a window of 300 by 200 pixels, worked with pointer and keys. Texts are written in
/// FixedFont; pictures are those of `pictures`.
class ControlTest : public testing::Test {
protected:
    ControlTest();

    /// The screen's children, one below the other, and templates before them; single quotation
    /// marks will do. Draws the first frame.
    void open(const std::string& children, const std::string& templates = "");

    [[nodiscard]] WidgetPtr find(const std::string& name) const;
    template <class T> [[nodiscard]] T& get(const std::string& name) const
    {
        return dynamic_cast<T&>(*find(name));
    }

    /// Draws a frame in which all is laid out anew.
    void layOutAnew();
    /// A clone of the widget, in the window too.
    template <class T> std::shared_ptr<T> addClone(const T& original)
    {
        auto copy = std::dynamic_pointer_cast<T>(original.clone());
        screen->add(copy);
        layOutAnew();
        return copy;
    }
    /// The list that is open, if one is.
    [[nodiscard]] static PopupList* popup();

    /// To the widget's middle, or so many pixels beside it.
    void moveTo(const Widget& widget, float right = 0, float down = 0);
    void press(const Widget& widget);
    void click(const Widget& widget);
    void click(const std::string& name) { click(*find(name)); }
    void focus(const std::string& name);
    [[nodiscard]] std::string focused() const;
    /// Lets `note` write down something about the widget with each activation of it.
    void noteActivations(const std::string& name, std::function<std::string()> note);
    /// What was written down since the last call, one behind the other with a blank.
    [[nodiscard]] std::string taken();

    PictureFolder pictures;
    RunningToolkit toolkit;
    std::shared_ptr<Screen> screen;

private:
    struct Note {
        ControlTest* test;
        std::function<std::string()> text;
    };

    static void onActivate(WidgetEvent& event);

    std::vector<std::unique_ptr<Note>> notes_;
    std::string taken_;
};

} // namespace nui::test
