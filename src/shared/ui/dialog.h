#pragma once

#include "nui/reader/widget_pack.h"
#include "nui/widgets/screen.h"

#include <functional>
#include <memory>

namespace nrd::shared::ui {

// Names are written as those who use it, the wizard's pages, write theirs.
// NOLINTBEGIN(readability-identifier-naming)

/// A small window of its own with an OK and a Cancel button, shown beside the main window or waited
/// for. A layout file describes it; children named "title_container", "ok_button" and
/// "cancel_button" have their part in it, and any may be missing. Escape is Cancel, where there is
/// such a button.
class dialog : public nui::Cloneable<dialog, nui::Screen>, public nui::ModuleInit {
public:
    static constexpr int ok = 1;
    static constexpr int cancel = 2;

    dialog() = default;
    dialog(const dialog& other);
    dialog& operator=(const dialog& other);
    ~dialog() override = default;

    void init(nui::WidgetPack& pack, nui::WidgetMap& widgets) override;
    /// The window can be moved by all that is above the bottom edge of the title container.
    void openWindow() override;
    [[nodiscard]] const char* className() const override { return "dialog"; }

    virtual void on_cancel();
    virtual void on_ok_pressed();

    /// 0 while there is no answer. Nothing resets it: a dialog that was answered once stays so.
    int result = 0;
    std::function<void()> on_ok; ///< called before the window closes

private:
    static void onOkClick(nui::WidgetEvent& event);
    static void onCancelClick(nui::WidgetEvent& event);
    static void onKey(nui::WidgetEvent& event);
    void close();

    friend void show(const std::shared_ptr<dialog>& shown);

    nui::Widget* titleContainer_ = nullptr;
    nui::Widget* okButton_ = nullptr;
    nui::Widget* cancelButton_ = nullptr;
};

/// Opens the dialog over the main window, if there is one, and returns; its buttons close it.
void show(const std::shared_ptr<dialog>& shown);

/// The same, and turns the engine's loop until the dialog is answered, or closed in another way,
/// or the engine quits. Answers the dialog's result; at once for one that was answered before,
/// whose window then stays open.
int show_modal(const std::shared_ptr<dialog>& shown);

// NOLINTEND(readability-identifier-naming)

} // namespace nrd::shared::ui
