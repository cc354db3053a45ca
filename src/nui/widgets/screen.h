#pragma once

#include "nui/engine/window_handle.h"
#include "nui/native_window.h"
#include "nui/reader/widget_pack.h"
#include "nui/widgets/container.h"

#include <cstdint>
#include <memory>
#include <string>

namespace nui {

class PopupMenu;

/// The root of a widget tree, and the window that shows it. Made unopened by the reader or the
/// application; once added to the engine it is laid out and drawn by the run loop. `parent` is
/// the screen that it is modal over.
class Screen : public Cloneable<Screen, Container> {
public:
    Screen();
    /// The copy has no window.
    Screen(const Screen& other);
    Screen& operator=(const Screen& other);
    ~Screen() override;

    void measure() override;
    bool layout(std::uint32_t flags) override;
    void place() override;
    bool read(NuiReader& reader) override;
    /// Of the native window only; the widgets know nothing of it.
    void setEnabled(bool enabled) override;
    [[nodiscard]] const char* className() const override { return "Screen"; }
    void reloadText() override;

    virtual void setWindowMenu(const std::shared_ptr<PopupMenu>& menu);
    /// Opens the window, hidden or not, as the visibility says. Nothing if it is open.
    virtual void openWindow();
    /// For applications whose screens find widgets of their own.
    [[nodiscard]] virtual WidgetMap newWidgetMap() { return {}; }
    virtual void stateChanged() {}

    /// Shows the window, now or after the first layout; it gets the keyboard, and the parent's
    /// window is disabled.
    void show();
    void markDirty() { dirty = true; }
    void setTitle(const std::string& plainText);
    /// A key that the language doesn't know leaves the title as it is.
    void setTitleKey(const std::string& key);
    // These take effect when the window is opened.
    void setBorderless(bool set) { setWindowFlag(BorderlessFlag, set); }
    void setResizable(bool set) { setWindowFlag(ResizableFlag, set); }
    void setMinimized(bool set) { setWindowFlag(MinimizedFlag, set); }
    void setMaximized(bool set) { setWindowFlag(MaximizedFlag, set); }
    void setMinimizeBox(bool set);
    void setWidth(Size size);
    void setHeight(Size size);
    void setMinWidth(Size size) { minWidth_ = size; }
    void setMinHeight(Size size) { minHeight_ = size; }
    /// Client coordinates of the screen; fixes both axes.
    void setRect(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    /// The same for the window with its frame.
    void setOuterRect(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    [[nodiscard]] Rect clientRect() const;
    [[nodiscard]] Rect outerRect() const;
    [[nodiscard]] FrameSizes frameSizes() const;

    /// A layer over everything with the child on it, darkened if `dim`. One at a time.
    void showModalOverlay(WidgetPtr child, bool dim);
    void removeModalOverlay();
    [[nodiscard]] const std::shared_ptr<Container>& modalOverlay() const { return modalOverlay_; }

    /// Lets the widget, or a clone of it, follow the pointer until a release. The grab offset is
    /// the pointer's place in it.
    void beginDrag(const WidgetPtr& widget, Widget* owner, std::int32_t grabX, std::int32_t grabY,
                   bool useWidgetItself);

    /// Number of what the screen shows, for the application and the back stack.
    [[nodiscard]] std::uint32_t stateId() const { return stateId_; }
    void setStateId(std::uint32_t newId);

    [[nodiscard]] const std::string& title() const { return title_; }
    [[nodiscard]] bool isLaidOut() const { return laidOut_; }
    [[nodiscard]] bool isShowPending() const { return showPending_; }
    /// Whether there is a window.
    [[nodiscard]] bool isOpen() const { return window && window->exists(); }
    /// SDL's id of the window; 0 without one.
    [[nodiscard]] std::uint32_t windowId() const { return isOpen() ? window->id() : 0; }
    void closeWindow();
    /// The screen over which this one is modal goes first.
    void loseParent();

    WidgetPtr focusedWidget; ///< has the keyboard within this window
    std::unique_ptr<WindowHandle> window;
    bool dirty = true; ///< needs a layout

private:
    static constexpr std::uint32_t OpenGlFlag = 2; ///< these are SDL_WindowFlags
    static constexpr std::uint32_t HiddenFlag = 8;
    static constexpr std::uint32_t BorderlessFlag = 16;
    static constexpr std::uint32_t ResizableFlag = 32;
    static constexpr std::uint32_t MinimizedFlag = 64;
    static constexpr std::uint32_t MaximizedFlag = 128;
    static constexpr std::uint32_t MinimizeBoxStyle = 0x20000; ///< WS_MINIMIZEBOX

    void adoptWindowKeys(const Screen& other);
    void setWindowFlag(std::uint32_t flag, bool set);
    void readFlag(NuiReader& reader, const char* key, std::uint32_t flag);
    void firstLayoutSize(std::uint32_t flags);
    void finishFirstPlacing();
    void moveWindow(std::int32_t left, std::int32_t top);
    static void onDragEvent(WidgetEvent& event);
    void endDrag();

    std::shared_ptr<Container> modalOverlay_;
    std::string title_;
    std::string titleKey_;
    std::shared_ptr<PopupMenu> windowMenu_;
    std::uint32_t stateId_ = 0;
    WidgetPtr draggedWidget_;
    WidgetPtr previousDraggedWidget_;
    std::int32_t grabX_ = 0;
    std::int32_t grabY_ = 0;
    bool dragging_ = false;
    bool fixedWidth_ = false;
    bool fixedHeight_ = false;
    float windowWidth_ = 0;
    float windowHeight_ = 0;
    bool laidOut_ = false;
    bool showPending_ = false;
    std::string icon_;
    std::uint32_t windowFlags_ = OpenGlFlag;
    std::uint32_t windowStyle_ = MinimizeBoxStyle;
    Size minWidth_;
    Size minHeight_;
};

} // namespace nui
