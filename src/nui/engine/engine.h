#pragma once

#include "nui/animation/timers.h"
#include "nui/animation/tween.h"
#include "nui/draw/cursor.h"
#include "nui/draw/texture.h"
#include "nui/engine/back_stack.h"
#include "nui/engine/display_metrics.h"
#include "nui/engine/popups.h"
#include "nui/engine/screen_table.h"
#include "nui/engine/tool_tips.h"
#include "nui/events/keyboard_path.h"
#include "nui/events/pointer_path.h"
#include "nui/native_window.h"
#include "nui/text/fonts.h"
#include "nui/text/lang.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

union SDL_Event;

namespace nui {

class PopupMenu;
class PopupMenuItem;

/// Milliseconds of a clock that never goes back.
using TickClock = std::uint64_t (*)();

/// The toolkit's one engine: what all windows share, and the loop that turns SDL's events into
/// widgets' events, advances tweens, lays out and draws. Everything belongs to the thread that
/// started it, but for addTimer. Lives until the program ends.
class Engine {
public:
    /// Starts the toolkit: GL, the engine, the widget classes, the language. The base path is
    /// that of the program joined with `resourcePath`. A broken language file throws. SDL's
    /// video must run.
    static void start(const std::string& resourcePath);
    /// The engine alone, without window system and GL: for layouts that are only measured.
    static Engine& create();
    /// Drops the shared GL context and the engine.
    static void close();
    [[nodiscard]] static bool exists();
    [[nodiscard]] static Engine& get();

    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine();

    /// Until quit.
    void run();
    /// One turn of the loop. True when a frame is due, and draw() should follow.
    bool step();
    void draw(bool noSwap);
    void quit() { quit_ = true; }
    [[nodiscard]] bool hasQuit() const { return quit_; }

    void addScreen(const ScreenPtr& screen) { screens.add(screen); }
    void closeScreen(const ScreenPtr& screen) { screens.close(screen); }
    void setFocus(const WidgetPtr& widget) { keyboard.setFocus(widget); }
    /// From any thread; see TimerList::add.
    void addTimer(std::uint64_t delay, const WidgetPtr& widget, bool restart);
    void showPopup(const WidgetPtr& widget) { popups.show(widget); }
    void closePopup() { popups.close(); }
    void showToolTip(const std::string& text, float x, float y, bool fade);
    /// Modal. `flags` & 0xF: 0 OK, 1 OK and Cancel, 2 Yes and No, 3 Yes, No and Cancel;
    /// `flags` & 0xF0: 0x10 error, 0x20 warning, 0x30 information. Without a title the current
    /// screen's is shown. Answers 0 OK, 1 Cancel, 2 Yes, 3 No.
    int messageBox(std::uint32_t flags, const std::string& text, const char* title = nullptr);
    /// After a modal dialog of the system's own: what was pressed meanwhile was not meant for the
    /// toolkit's windows, and neither are the keys that are still held.
    void dropInput();
    const TextureRef* loadTexture(const std::string& name);
    /// The file of an image, cursor or font: below the resource directory.
    [[nodiscard]] std::string resourcePath(const std::string& name) const;
    /// True when the fonts were gone through again. See Lang for `selectedLang`.
    bool changeLanguageAndFont(const char* selectedLang, bool detectInputLang,
                               const std::function<void(const std::string&)>& log);

    void setScale(float factor) { metrics.setScale(factor); }
    /// Fast frames also without tweens and buttons.
    void setKeepFast(bool keep) { keepFast_ = keep; }
    [[nodiscard]] bool hasFastFrames() const { return fastFrames_; }
    /// Called with every message of the window system, after the toolkit.
    void setSystemMessageCallback(std::function<void(const NativeMessage&)> callback);
    /// Is offered every event that hit testing delivers; null for nobody. Not owned.
    void setEventSpy(ListenerList* spy) { eventSpy_ = spy; }
    [[nodiscard]] ListenerList* eventSpy() const { return eventSpy_; }
    /// Items with a shortcut or a native command; expired ones are skipped.
    void addMenuItem(const std::shared_ptr<PopupMenuItem>& item);
    [[nodiscard]] const std::vector<std::weak_ptr<PopupMenuItem>>& menuItems() const
    {
        return menuItems_;
    }
    /// A menu of that native handle is about to open.
    void nativeMenuOpens(const void* nativeMenu);

    /// Another clock than SDL's, for tests.
    void setClock(TickClock clock);
    [[nodiscard]] std::uint64_t now() const { return clock_(); }

    DisplayMetrics metrics;
    ScreenTable screens{*this};
    PointerPath pointer{*this};
    KeyboardPath keyboard{*this};
    ToolTips toolTips{*this};
    Popups popups{*this};
    BackStack backStack{*this};
    TweenManager tweens;
    TextureCache textures;
    CursorPtr linkCursor; ///< what links show; made on first use
    Fonts fonts;
    std::unique_ptr<Lang> lang;
    std::shared_ptr<PopupMenu> textMenu; ///< what text fields open; null for none
    std::string basePath;                ///< where layout files' names count from, UTF-8
    std::string resourceDirectory;       ///< where images, cursors and fonts lie
    std::string thirdDirectory;          ///< kept for the application
    std::shared_ptr<void> customShared;  ///< held for the application

private:
    friend class EventHandler;

    Engine();
    void drawScreen(const ScreenPtr& screen, bool noSwap);
    void reloadTexts();
    [[nodiscard]] bool frameIsDue(std::uint64_t now);

    std::unique_ptr<class EventHandler> events_;
    std::vector<std::weak_ptr<PopupMenuItem>> menuItems_;
    std::function<void(const NativeMessage&)> systemMessageCallback_;
    ListenerList* eventSpy_ = nullptr;
    TickClock clock_;
    TimerList timers_;
    std::uint64_t lastTick_ = 0;
    std::uint64_t nextFrame_ = 0;
    bool fastFrames_ = false;
    bool keepFast_ = false;
    bool quit_ = false;
};

/// The engine's, for those who only ask one thing of it.
[[nodiscard]] inline Engine& engine()
{
    return Engine::get();
}

} // namespace nui
