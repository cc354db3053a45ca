#include "nui/native_window.h"

#include "misc/text.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_syswm.h>
#include <commctrl.h>
#include <windows.h>

#include <unordered_map>

namespace nui {

namespace {

using MenuOpening = std::function<void(void* menu)>;

constexpr UINT_PTR MenuSubclass = 1;
constexpr LONG TrialSide = 500;

HWND nativeOf(SDL_Window* window)
{
    SDL_SysWMinfo info = {};
    SDL_VERSION(&info.version)
    const bool known = window != nullptr && SDL_GetWindowWMInfo(window, &info) == SDL_TRUE &&
                       info.subsystem == SDL_SYSWM_WINDOWS;
    return known ? info.info.win.window : nullptr;
}

std::wstring wide(const std::string& utf8)
{
    const std::u16string units = nrd::misc::to_utf16(utf8);
    return {units.begin(), units.end()};
}

UINT boxStyle(std::uint32_t flags)
{
    constexpr UINT Buttons[] = {MB_OK, MB_OKCANCEL, MB_YESNO, MB_YESNOCANCEL};
    const std::uint32_t choice = flags & 0xFU;
    UINT style = choice < std::size(Buttons) ? Buttons[choice] : MB_OK;
    switch (flags & 0xF0U) {
    case 0x10:
        style |= MB_ICONERROR;
        break;
    case 0x20:
        style |= MB_ICONWARNING;
        break;
    case 0x30:
        style |= MB_ICONINFORMATION;
        break;
    default:
        break;
    }
    return style;
}

std::function<void(const NativeMessage&)>& messageHook()
{
    static std::function<void(const NativeMessage&)> hook;
    return hook;
}

void SDLCALL onMessage(void* /*user*/, void* window, unsigned int message, Uint64 wParam,
                       Sint64 lParam)
{
    messageHook()(
        {window, message, static_cast<std::uintptr_t>(wParam), static_cast<std::intptr_t>(lParam)});
}

/// What the windows with a menu call before one of its menus opens; the main thread's.
std::unordered_map<HWND, MenuOpening>& menuOpenings()
{
    static std::unordered_map<HWND, MenuOpening> openings;
    return openings;
}

LRESULT CALLBACK subclassProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR id, DWORD_PTR /*data*/)
{
    const auto found = menuOpenings().find(window);
    if (message == WM_INITMENUPOPUP && found != menuOpenings().end()) {
        const MenuOpening opening = found->second; // it may attach another menu
        opening(reinterpret_cast<void*>(wParam));
    }
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, subclassProcedure, id);
        menuOpenings().erase(window);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

WorkArea workArea()
{
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    return {area.right - area.left, area.bottom - area.top};
}

std::int32_t frameHeight()
{
    return GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION) +
           GetSystemMetrics(SM_CXPADDEDBORDER) + GetSystemMetrics(SM_CYSIZE);
}

FrameSizes frameSizes(SDL_Window* window)
{
    const HWND native = nativeOf(window);
    RECT rect = {0, 0, TrialSide, TrialSide};
    const auto style = static_cast<DWORD>(GetWindowLongA(native, GWL_STYLE));
    if (AdjustWindowRect(&rect, style, GetMenu(native) != nullptr) == FALSE)
        return {};
    return {-rect.left, -rect.top, rect.right - TrialSide, rect.bottom - TrialSide};
}

Rect clientRect(SDL_Window* window)
{
    const FrameSizes frame = frameSizes(window);
    const Rect outer = outerRect(window);
    return {outer.x + frame.left, outer.y + frame.top, outer.width - frame.left - frame.right,
            outer.height - frame.top - frame.bottom};
}

Rect outerRect(SDL_Window* window)
{
    RECT rect = {};
    GetWindowRect(nativeOf(window), &rect);
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

void enableNativeWindow(SDL_Window* window, bool enable)
{
    EnableWindow(nativeOf(window), enable ? TRUE : FALSE);
}

void setNativeOwner(SDL_Window* window, SDL_Window* owner)
{
    const HWND native = nativeOf(window);
    SetWindowLongPtrW(native, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(nativeOf(owner)));
    // Wine tells the window manager of an owner along with a change of this bit only.
    const LONG style = GetWindowLongW(native, GWL_STYLE);
    SetWindowLongW(native, GWL_STYLE, style ^ WS_DISABLED);
    SetWindowLongW(native, GWL_STYLE, style);
}

void setMinimizeBoxStyle(SDL_Window* window, std::uint32_t style)
{
    const HWND native = nativeOf(window);
    const LONG others = GetWindowLongA(native, GWL_STYLE) & ~WS_MINIMIZEBOX;
    SetWindowLongA(native, GWL_STYLE, others | static_cast<LONG>(style));
    // The frame that is on the screen already is drawn anew only when told so.
    SetWindowPos(native, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::optional<int> nativeMessageBox(SDL_Window* owner, std::uint32_t flags, const std::string& text,
                                    const std::string& title)
{
    switch (
        MessageBoxW(nativeOf(owner), wide(text).c_str(), wide(title).c_str(), boxStyle(flags))) {
    case IDOK:
        return 0;
    case IDCANCEL:
        return 1;
    case IDYES:
        return 2;
    case IDNO:
        return 3;
    default:
        return std::nullopt;
    }
}

bool isKeyDown(std::int32_t key)
{
    const int native = key == SDLK_SPACE ? VK_SPACE : key == SDLK_ESCAPE ? VK_ESCAPE : VK_RETURN;
    return GetAsyncKeyState(native) < 0;
}

void setNativeMessageHook(const std::function<void(const NativeMessage&)>& hook)
{
    messageHook() = hook;
    SDL_SetWindowsMessageHook(messageHook() ? onMessage : nullptr, nullptr);
}

std::optional<NativeMessage> nativeMessageOf(const SDL_SysWMmsg& message)
{
    if (message.subsystem != SDL_SYSWM_WINDOWS)
        return std::nullopt;
    const auto& native = message.msg.win;
    return NativeMessage{native.hwnd, native.msg, native.wParam, native.lParam};
}

void passToSystem(const NativeMessage& message)
{
    DefWindowProcW(static_cast<HWND>(message.window), message.message, message.wParam,
                   message.lParam);
}

bool isNativeWindow(SDL_Window* window, const void* nativeWindow)
{
    return nativeWindow != nullptr && nativeOf(window) == nativeWindow;
}

void attachNativeMenu(SDL_Window* window, void* menu,
                      const std::function<void(void* menu)>& opening)
{
    const HWND native = nativeOf(window);
    if (native == nullptr)
        return;
    RemoveWindowSubclass(native, subclassProcedure, MenuSubclass);
    menuOpenings().erase(native);
    SetMenu(native, static_cast<HMENU>(menu));
    if (menu == nullptr || !opening)
        return;
    if (SetWindowSubclass(native, subclassProcedure, MenuSubclass, 0) != FALSE)
        menuOpenings()[native] = opening;
}

} // namespace nui
