#include "nui/widgets/screen.h"

#include "nui/engine/engine.h"
#include "nui/menus/popup_menu.h"
#include "nui/native_window.h"
#include "nui/reader/nui_reader.h"
#include "nui/reader/resource_path.h"

#include <SDL_video.h>

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

constexpr Color DimColor = 0xC0000000;

} // namespace

Screen::Screen()
{
    widthMode = Content;
    heightMode = Content;
}

Screen::Screen(const Screen& other) : Cloneable<Screen, Container>(other)
{
    adoptWindowKeys(other);
}

Screen& Screen::operator=(const Screen& other)
{
    if (this != &other) {
        Container::operator=(other);
        adoptWindowKeys(other);
    }
    return *this;
}

/// What describes the window; the window itself and what goes on in it stay with the other.
void Screen::adoptWindowKeys(const Screen& other)
{
    title_ = other.title_;
    titleKey_ = other.titleKey_;
    windowMenu_ = other.windowMenu_;
    stateId_ = other.stateId_;
    fixedWidth_ = other.fixedWidth_;
    fixedHeight_ = other.fixedHeight_;
    windowWidth_ = other.windowWidth_;
    windowHeight_ = other.windowHeight_;
    icon_ = other.icon_;
    windowFlags_ = other.windowFlags_;
    windowStyle_ = other.windowStyle_;
    minWidth_ = other.minWidth_;
    minHeight_ = other.minHeight_;
}

Screen::~Screen() = default;

void Screen::measure()
{
    Container::measure();
    if (!fixedWidth_)
        width = std::ceil(width);
    if (!fixedHeight_)
        height = std::ceil(height);
}

bool Screen::layout(std::uint32_t flags)
{
    if (laidOut_) {
        width = static_cast<float>(window ? window->drawableWidth : 0);
        height = static_cast<float>(window ? window->drawableHeight : 0);
        return Container::layout(flags & ~layout_flag::ResolveOwnSize);
    }
    firstLayoutSize(flags);
    return Container::layout(flags & ~layout_flag::ResolveOwnSize);
}

/// Until the window has its size, percentages are of the display.
void Screen::firstLayoutSize(std::uint32_t flags)
{
    if (widthMode == Percent)
        widthMode = DisplayPercent;
    if (heightMode == Percent)
        heightMode = DisplayPercent;
    if ((flags & layout_flag::ResolveOwnSize) != 0)
        resolveOwn(flags);
    if (fixedWidth_)
        width = windowWidth_;
    if (fixedHeight_)
        height = windowHeight_;
    applyLimits();
}

void Screen::place()
{
    const bool first = !laidOut_;
    laidOut_ = true;
    Container::place();
    dirty = false;
    if (first && isOpen())
        finishFirstPlacing();
}

void Screen::finishFirstPlacing()
{
    if (!window->isMaximized()) // its size is the system's
        window->setSize(wholePixels(width), wholePixels(height));
    if (gravity == Placement::Center || alignment == Placement::Center)
        window->center();
    // SDL tells of no resize that the program asked for itself.
    window->readDrawableSize();
    if (static_cast<float>(window->drawableWidth) != width ||
        static_cast<float>(window->drawableHeight) != height)
        dirty = true;
    if (showPending_) {
        window->show();
        showPending_ = false;
    }
}

bool Screen::read(NuiReader& reader)
{
    Container::read(reader);
    // A text whose unit is unknown leaves its number behind, here as everywhere.
    Size size{widthValue, widthMode};
    if (reader.readSize(size, "windowWidth"))
        setWidth(size);
    widthValue = size.value;
    size = {heightValue, heightMode};
    if (reader.readSize(size, "windowHeight"))
        setHeight(size);
    heightValue = size.value;
    reader.readSize(minWidth_, "minWindowWidth");
    reader.readSize(minHeight_, "minWindowHeight");
    std::string key;
    if (reader.readString(key, "windowTitle", true)) {
        // Plain text stands for itself, as everywhere.
        setTitle(key);
        setTitleKey(key);
    }
    readFlag(reader, "minimized", MinimizedFlag);
    readFlag(reader, "maximized", MaximizedFlag);
    readFlag(reader, "borderless", BorderlessFlag);
    readFlag(reader, "resizable", ResizableFlag);
    bool minimizeBox = (windowStyle_ & MinimizeBoxStyle) != 0;
    reader.readBool(minimizeBox, "minimizeBox");
    setMinimizeBox(minimizeBox);
    std::string menu;
    if (reader.readString(menu, "windowMenu", true))
        windowMenu_ = reader.menuNamed(menu);
    reader.readString(icon_, "icon", true);
    return true;
}

void Screen::readFlag(NuiReader& reader, const char* key, std::uint32_t flag)
{
    bool set = (windowFlags_ & flag) != 0;
    reader.readBool(set, key);
    setWindowFlag(flag, set);
}

void Screen::setWindowFlag(std::uint32_t flag, bool set)
{
    windowFlags_ = set ? windowFlags_ | flag : windowFlags_ & ~flag;
}

void Screen::setMinimizeBox(bool set)
{
    windowStyle_ = set ? windowStyle_ | MinimizeBoxStyle : windowStyle_ & ~MinimizeBoxStyle;
}

void Screen::setWidth(Size size)
{
    widthValue = size.value;
    widthMode = size.mode;
    fixedWidth_ = fixedWidth_ || size.mode != Content;
}

void Screen::setHeight(Size size)
{
    heightValue = size.value;
    heightMode = size.mode;
    fixedHeight_ = fixedHeight_ || size.mode != Content;
}

void Screen::setEnabled(bool enabled)
{
    if (window)
        window->setEnabled(enabled);
}

void Screen::reloadText()
{
    Container::reloadText();
    if (titleKey_.empty())
        return;
    // The key stays, also while a language lacks it.
    title_ = engine().lang->getString(titleKey_);
    if (isOpen())
        window->setTitle(title_);
}

void Screen::setTitle(const std::string& plainText)
{
    title_ = plainText;
    titleKey_.clear();
    if (isOpen())
        window->setTitle(title_);
}

void Screen::setTitleKey(const std::string& key)
{
    const Lang* const language = engine().lang.get();
    if (language != nullptr && language->has(key)) {
        titleKey_ = key;
        title_ = language->getString(key);
    } else {
        titleKey_.clear();
    }
    if (isOpen())
        window->setTitle(title_);
}

void Screen::setWindowMenu(const std::shared_ptr<PopupMenu>& menu)
{
    windowMenu_ = menu;
    if (isOpen())
        attachNativeMenu(window->sdlWindow(), menu ? menu->nativeMenu() : nullptr,
                         [](void* opening) { engine().nativeMenuOpens(opening); });
}

void Screen::openWindow()
{
    if (window)
        return;
    WidgetEvent opening(plain_event::WindowOpening);
    broadcast(opening);
    setWindowFlag(HiddenFlag, visibility < visibility::Overlapping);
    window = std::make_unique<WindowHandle>();
    laidOut_ = false;

    const WorkArea area = workArea();
    const auto resolve = [](Size size, std::int32_t reference) {
        return resolveEdge(size, static_cast<float>(reference));
    };
    windowWidth_ = fixedWidth_ ? resolve({widthValue, widthMode}, area.width) : width;
    windowHeight_ =
        fixedHeight_ ? resolve({heightValue, heightMode}, area.height - frameHeight()) : height;
    SDL_DisplayMode display = {};
    SDL_GetDesktopDisplayMode(0, &display);

    WindowSettings settings;
    settings.title = title_;
    settings.width = std::max(wholePixels(windowWidth_), 1);
    settings.height = std::max(wholePixels(windowHeight_), 1);
    settings.flags = windowFlags_;
    if (!icon_.empty())
        settings.iconPath = joinPath(engine().basePath, icon_);
    settings.minWidth = wholePixels(resolve(minWidth_, display.w));
    settings.minHeight = wholePixels(resolve(minHeight_, display.h));
    engine().keyboard.noteHeldKeys();
    if (!window->create(settings))
        return;
    if (const auto* const over = dynamic_cast<const Screen*>(parent); over && over->isOpen())
        setNativeOwner(window->sdlWindow(), over->window->sdlWindow());
    if (windowMenu_)
        setWindowMenu(windowMenu_);
    if (windowStyle_ != MinimizeBoxStyle)
        setMinimizeBoxStyle(window->sdlWindow(), windowStyle_);
}

void Screen::show()
{
    if (laidOut_ && isOpen())
        window->show();
    else
        showPending_ = true;
    // A window that waits for its first layout is shown then, and must not be skipped as hidden.
    if (window)
        window->hidden = false;
    engine().keyboard.focusScreen = std::static_pointer_cast<Screen>(shared_from_this());
    if (auto* const over = dynamic_cast<Screen*>(parent))
        over->setEnabled(false);
}

void Screen::moveWindow(std::int32_t left, std::int32_t top)
{
    if (!isOpen())
        return;
    SDL_SetWindowPosition(window->sdlWindow(), left, top);
    window->setSize(wholePixels(widthValue), wholePixels(heightValue));
    window->readDrawableSize();
    markDirty();
}

void Screen::setRect(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)
{
    setWidth({static_cast<float>(right - left), Px});
    setHeight({static_cast<float>(bottom - top), Px});
    windowWidth_ = widthValue;
    windowHeight_ = heightValue;
    moveWindow(left, top);
}

void Screen::setOuterRect(std::int32_t left, std::int32_t top, std::int32_t right,
                          std::int32_t bottom)
{
    const FrameSizes frame = frameSizes();
    setRect(left + frame.left, top + frame.top, right - frame.right, bottom - frame.bottom);
}

FrameSizes Screen::frameSizes() const
{
    return isOpen() ? nui::frameSizes(window->sdlWindow()) : FrameSizes{};
}

void Screen::loseParent()
{
    parent = nullptr;
    if (isOpen())
        setNativeOwner(window->sdlWindow(), nullptr);
}

void Screen::closeWindow()
{
    // The system destroys a menu along with the window that it is attached to.
    if (isOpen() && windowMenu_)
        attachNativeMenu(window->sdlWindow(), nullptr, {});
    window.reset();
}

Rect Screen::clientRect() const
{
    return isOpen() ? nui::clientRect(window->sdlWindow()) : Rect{};
}

Rect Screen::outerRect() const
{
    return isOpen() ? nui::outerRect(window->sdlWindow()) : Rect{};
}

void Screen::showModalOverlay(WidgetPtr child, bool dim)
{
    removeModalOverlay();
    modalOverlay_ = std::make_shared<Container>();
    modalOverlay_->widthMode = Percent;
    modalOverlay_->heightMode = Percent;
    modalOverlay_->visibility = visibility::Overlapping;
    modalOverlay_->backgroundColor = dim ? DimColor : 0;
    modalOverlay_->add(std::move(child));
    add(modalOverlay_);
    markDirty();
}

void Screen::removeModalOverlay()
{
    if (!modalOverlay_)
        return;
    engine().pointer.forgetTree(*modalOverlay_);
    engine().keyboard.forgetTree(*modalOverlay_);
    remove(modalOverlay_.get());
    modalOverlay_->removeAll();
    modalOverlay_.reset();
    markDirty();
}

void Screen::setStateId(std::uint32_t newId)
{
    stateId_ = newId;
    stateChanged();
}

} // namespace nui
