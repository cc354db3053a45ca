#pragma once

#include "nui/widgets/container.h"

#include <string>

namespace nui {

/// Tells a page, as its target, that it has come to the front.
class PagesContainerEvent : public WidgetEvent {
public:
    PagesContainerEvent() : WidgetEvent(plain_event::Activate) {}
};

/// Shows one of its children, the pages, over its whole room. Until the first show() they have
/// the visibility that the layout file gave them.
class PagesContainer : public Cloneable<PagesContainer, Container> {
public:
    PagesContainer() = default;
    /// A copy shows the clone of the page that its source shows.
    PagesContainer(const PagesContainer& other);
    PagesContainer& operator=(const PagesContainer& other);
    ~PagesContainer() override = default;

    bool layout(std::uint32_t flags) override;
    /// By the page that shows alone.
    void measure() override;
    [[nodiscard]] const char* className() const override { return "PagesContainer"; }

    /// Brings the child of that name to the front and tells it so. False if it is there already
    /// or there is none.
    bool show(const std::string& page);
    bool show(const WidgetPtr& page);
    [[nodiscard]] const WidgetPtr& current() const { return current_; }

private:
    void adoptCurrent(const PagesContainer& other);
    [[nodiscard]] float roomAround(Axis axis, float length) const;

    WidgetPtr current_;
    bool started_ = false; ///< the first show() has hidden all pages
};

} // namespace nui
