#pragma once

#include "nui/engine/engine.h"
#include "support/nui/fixed_font.h"
#include "support/nui/headless_screen.h"
#include "support/nui/layout.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace nui::test {

/// A widget in a box as large as the window that it is drawn on. Texts are written in FixedFont,
/// on the display of MeasuringEngine.
template <class T> class DrawnWidgetTest : public testing::Test {
protected:
    DrawnWidgetTest(int width, int height) : window(width, height)
    {
        engine().fonts.defaultFont = std::make_unique<FixedFont>();
    }

    [[nodiscard]] static FixedFont& font()
    {
        return dynamic_cast<FixedFont&>(*engine().fonts.defaultFont);
    }

    /// `keys` are the widget's, with its class.
    void build(const std::string& keys)
    {
        box = containerOf(
            "{'class': 'Container', 'width': " + std::to_string(window.window.drawableWidth) +
            ", 'height': " + std::to_string(window.window.drawableHeight) + ", 'children': [{" +
            keys + "}]}");
        layOut(*box);
        widget = std::dynamic_pointer_cast<T>(box->children()[0]);
    }

    void draw()
    {
        window.clear();
        box->draw({0, 0}, 1);
    }

    [[nodiscard]] std::string size() const
    {
        return std::to_string(static_cast<int>(widget->width)) + "x" +
               std::to_string(static_cast<int>(widget->height));
    }

    MeasuringEngine measuring;
    HeadlessScreen window;
    std::shared_ptr<Container> box;
    std::shared_ptr<T> widget;
};

} // namespace nui::test
