#include "nui/engine/engine.h"

#include "misc/system_info.h"
#include "nui/draw/drawing.h"
#include "nui/draw/gl_context.h"
#include "nui/engine/event_handler.h"
#include "nui/menus/popup_menu.h"
#include "nui/menus/text_menu.h"
#include "nui/reader/resource_path.h"
#include "nui/reader/widget_registry.h"
#include "nui/text/choose_fonts.h"
#include "nui/widgets/screen.h"

#include <SDL.h>

#include <stdexcept>
#include <utility>

namespace nui {

namespace {

constexpr std::uint64_t FastFrame = 16; ///< milliseconds
constexpr std::uint64_t IdleFrame = 66;
/// With more time than this left to the next frame the loop sleeps a little.
constexpr std::uint64_t ShortWait = 3;
constexpr std::uint32_t StepSleep = 1;
constexpr std::uint32_t NothingDrawnSleep = 20;

/// Never destroyed at the program's end, when threads may still add timers.
Engine*& theEngine()
{
    static Engine* engine = nullptr;
    return engine;
}

std::string programFolder()
{
    char* const folder = SDL_GetBasePath();
    std::string path = folder != nullptr ? folder : "";
    SDL_free(folder);
    return path;
}

} // namespace

Engine::Engine() : basePath(programFolder()), clock_(SDL_GetTicks64), timers_(clock_)
{
    metrics.read();
    resourceDirectory = basePath;
    thirdDirectory = basePath;
}

Engine::~Engine() = default;

Engine& Engine::create()
{
    if (theEngine() == nullptr)
        theEngine() = new Engine;
    return *theEngine();
}

void Engine::start(const std::string& resourcePath)
{
    setGlAttributes();
    prepareDrawing();
    const std::uint32_t userEventType = SDL_RegisterEvents(1);
    Engine& engine = create();
    registerToolkitClasses();
    engine.events_.reset(); // its hook must not outlive it, nor go with it later
    engine.events_ = std::make_unique<EventHandler>(engine, userEventType);
    if (!resourcePath.empty()) {
        engine.basePath = joinPath(engine.basePath, resourcePath);
        engine.resourceDirectory = engine.basePath;
        engine.thirdDirectory = engine.basePath;
    }
    engine.fonts.fontsDir = joinPath(engine.basePath, "fonts");
    engine.lang = std::make_unique<Lang>(joinPath(engine.basePath, "langfile.txt"));
    engine.textMenu = loadTextMenu(joinPath(engine.basePath, "text_menu.json"));
    openHiddenWindow();
}

void Engine::close()
{
    if (theEngine() == nullptr)
        return;
    // While there still is an engine for the widgets to ask; what is modal over others first.
    while (!theEngine()->screens.empty())
        theEngine()->screens.close(theEngine()->screens.all().rbegin()->second);
    theEngine()->fonts = {};
    closeGl();
    delete std::exchange(theEngine(), nullptr);
}

bool Engine::exists()
{
    return theEngine() != nullptr;
}

Engine& Engine::get()
{
    if (theEngine() == nullptr)
        throw std::logic_error("The toolkit has not been started.");
    return *theEngine();
}

void Engine::run()
{
    while (!quit_) {
        if (step())
            draw(false);
    }
}

bool Engine::frameIsDue(std::uint64_t now)
{
    if (now >= nextFrame_) {
        nextFrame_ = now + (fastFrames_ ? FastFrame : IdleFrame);
        return true;
    }
    if (nextFrame_ - now > ShortWait)
        SDL_Delay(StepSleep);
    return false;
}

bool Engine::step()
{
    const std::uint64_t now = clock_();
    const bool frameDue = frameIsDue(now);
    toolTips.step(now);
    const float delta =
        lastTick_ == 0 ? 0.0F : static_cast<float>(static_cast<double>(now - lastTick_) / 1000.0);
    const bool tweening = tweens.update(delta);
    lastTick_ = now;
    timers_.dispatchDue(now);
    keyboard.markReleasedKeys();
    const bool buttonsTold = events_ && events_->handleAll();
    keyboard.forgetReleasedKeys();
    if (pointer.isDown() && !buttonsTold)
        pointer.refreshButtons();
    fastFrames_ = tweening || pointer.isDown() || keepFast_;
    return frameDue;
}

void Engine::draw(bool noSwap)
{
    if (screens.empty()) {
        quit_ = quit_ || screens.lastHasClosed();
        SDL_Delay(NothingDrawnSleep);
        return;
    }
    bool drawn = false;
    // By id, as layouts may open and close screens.
    const std::map<std::uint32_t, ScreenPtr>& open = screens.all();
    for (auto place = open.begin(); place != open.end();) {
        const auto [id, screen] = *place;
        if (!screen->isOpen()) {
            // The others are drawn again by the next frame.
            screens.drop(screen);
            quit_ = quit_ || screens.empty();
            break;
        }
        const WindowHandle& window = *screen->window;
        const bool waitsForLayout = !screen->isLaidOut() && screen->isShowPending();
        if ((!window.minimized && !window.hidden) || waitsForLayout) {
            drawScreen(screen, noSwap);
            drawn = true;
        }
        place = open.upper_bound(id);
    }
    if (!drawn)
        SDL_Delay(NothingDrawnSleep);
}

void Engine::drawScreen(const ScreenPtr& screen, bool noSwap)
{
    screens.makeCurrent(screen);
    set2DProjection();
    setViewport();
    resetFrameState();
    if (screen->dirty) {
        const std::uint32_t flags = screen->isLaidOut() ? layout_flag::Again : layout_flag::First;
        // What is sized by content may be known only after a first pass has measured it.
        if (!screen->layout(flags))
            screen->layout(flags & ~layout_flag::ResolveOwnSize);
        screen->place();
        // A page that was laid out may have opened or closed windows.
        if (!screen->isOpen())
            return;
        screens.makeCurrent(screen);
        // The first placing gives the window its size.
        set2DProjection();
        setViewport();
    }
    screen->window->frame.begin(screen->window->drawableWidth, screen->window->drawableHeight);
    screen->draw({0, 0}, 1);
    // What a page draws may have closed its window.
    if (!screen->isOpen())
        return;
    screens.makeCurrent(screen);
    if (noSwap)
        screen->window->frame.drawOnly();
    else
        screen->window->frame.show(clock_());
}

void Engine::addTimer(std::uint64_t delay, const WidgetPtr& widget, bool restart)
{
    timers_.add(delay, widget, restart);
}

void Engine::showToolTip(const std::string& text, float x, float y, bool fade)
{
    toolTips.show(text, x, y, fade);
}

const TextureRef* Engine::loadTexture(const std::string& name)
{
    return textures.load(name, resourceDirectory);
}

std::string Engine::resourcePath(const std::string& name) const
{
    return joinPath(resourceDirectory, name);
}

bool Engine::changeLanguageAndFont(const char* selectedLang, bool detectInputLang,
                                   const std::function<void(const std::string&)>& log)
{
    if (!lang)
        lang = std::make_unique<Lang>("");
    const std::string before = lang->languageUnicode;
    const bool changed =
        nui::changeLanguageAndFont(fonts, *lang, selectedLang, detectInputLang,
                                   {.systemFonts = SystemFonts::ofThisSystem,
                                    .deviceLanguage = Lang::getDeviceLanguage,
                                    .keyboardLanguage = nrd::misc::keyboard_language_name},
                                   log);
    if (lang->languageUnicode != before)
        reloadTexts();
    return changed;
}

void Engine::dropInput()
{
    SDL_PumpEvents();
    if (SDL_HasEvent(SDL_MOUSEBUTTONUP) == SDL_TRUE)
        pointer.letGo();
    // What ends a composition stays.
    SDL_FlushEvents(SDL_KEYDOWN, SDL_KEYUP);
    SDL_FlushEvent(SDL_TEXTINPUT);
    SDL_FlushEvents(SDL_MOUSEMOTION, SDL_MOUSEWHEEL);
    keyboard.noteHeldKeys();
}

/// What is open speaks the new language from the next frame on.
void Engine::reloadTexts()
{
    for (const auto& [id, screen] : screens.all())
        screen->reloadText();
    screens.markAllDirty();
}

void Engine::setSystemMessageCallback(std::function<void(const NativeMessage&)> callback)
{
    systemMessageCallback_ = std::move(callback);
}

void Engine::addMenuItem(const std::shared_ptr<PopupMenuItem>& item)
{
    std::erase_if(menuItems_, [&item](const std::weak_ptr<PopupMenuItem>& known) {
        return known.expired() || known.lock() == item;
    });
    menuItems_.push_back(item);
}

void Engine::nativeMenuOpens(const void* nativeMenu)
{
    for (const std::weak_ptr<PopupMenuItem>& known : menuItems_) {
        const auto menu = std::dynamic_pointer_cast<PopupMenu>(known.lock());
        if (menu && menu->hasNativeMenu(nativeMenu)) {
            menu->open();
            return;
        }
    }
}

void Engine::setClock(TickClock clock)
{
    clock_ = clock;
    timers_.setClock(clock);
}

} // namespace nui
