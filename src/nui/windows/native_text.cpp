#include "nui/text/native_text.h"

#include "misc/text.h"
#include "nui/draw/gl_context.h"
#include "nui/engine/window_handle.h"
#include "nui/text/shown_text.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_syswm.h>
#include <windows.h>

#include <algorithm>
#include <type_traits>
#include <vector>

namespace nui {

namespace {

struct DeleteObjectOfGdi {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct DeleteContext {
    void operator()(HDC context) const { DeleteDC(context); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectOfGdi>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteObjectOfGdi>;
using ContextHandle = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

/// Puts an object into a device context while it lives.
class Selected {
public:
    Selected(HDC context, HGDIOBJ object)
        : context_(context), before_(SelectObject(context, object))
    {
    }
    ~Selected() { SelectObject(context_, before_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC context_;
    HGDIOBJ before_;
};

/// The current window's context, else one of its own.
class WindowContext {
public:
    WindowContext() : window_(currentNativeWindow())
    {
        if (window_ != nullptr)
            context_ = GetDC(window_);
        if (context_ == nullptr) {
            own_.reset(CreateCompatibleDC(nullptr));
            context_ = own_.get();
        }
    }
    ~WindowContext()
    {
        if (!own_)
            ReleaseDC(window_, context_);
    }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;

    [[nodiscard]] HDC get() const { return context_; }

private:
    static HWND currentNativeWindow()
    {
        const WindowHandle* const window = currentWindow();
        SDL_SysWMinfo info = {};
        SDL_VERSION(&info.version)
        const bool known = window != nullptr && window->sdlWindow() != nullptr &&
                           SDL_GetWindowWMInfo(window->sdlWindow(), &info) == SDL_TRUE;
        return known ? info.info.win.window : nullptr;
    }

    HWND window_;
    HDC context_ = nullptr;
    ContextHandle own_;
};

std::wstring shownWide(const std::string& text)
{
    const std::u16string units = nrd::misc::to_utf16(shownText(text));
    return {units.begin(), units.end()};
}

/// Flags that measuring and drawing have in common.
UINT textFormat(bool wrap)
{
    // As in an edit control, words that are too long wrap too, and text that is cut at the lower
    // edge ends in an ellipsis.
    return DT_NOPREFIX | DT_EDITCONTROL | (wrap ? DT_WORDBREAK : 0U);
}

UINT alignmentFormat(TextAlignment alignment)
{
    switch (alignment) {
    case TextAlignment::Center:
        return DT_CENTER;
    case TextAlignment::Right:
        return DT_RIGHT;
    default:
        return DT_LEFT;
    }
}

/// Pixels of four bytes from the top; `pixels` lives as long as the bitmap.
BitmapHandle pixelBitmap(HDC context, LONG width, LONG height, void** pixels)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return BitmapHandle(CreateDIBSection(context, &info, DIB_RGB_COLORS, pixels, nullptr, 0));
}

int sumOf(const RGBQUAD& color)
{
    return color.rgbRed + color.rgbGreen + color.rgbBlue;
}

} // namespace

struct NativeFace {
    FontHandle font;
    ContextHandle context{CreateCompatibleDC(nullptr)};
    std::int32_t lineHeight = 0;
};

void CloseNativeFace::operator()(NativeFace* face) const
{
    const std::unique_ptr<NativeFace> owned(face);
}

void setNativeTextLanguage(const std::string& /*code*/)
{
    // A face has one shape of each character.
}

NativeFacePtr openNativeFace(const NativeFont& font, std::int32_t pixels)
{
    LOGFONTW record = {};
    record.lfHeight = -pixels;
    record.lfWeight = font.weight;
    record.lfItalic = font.italic ? TRUE : FALSE;
    record.lfCharSet = DEFAULT_CHARSET;
    record.lfQuality = CLEARTYPE_QUALITY;
    const std::u16string units = nrd::misc::to_utf16(font.face);
    std::copy_n(units.begin(), std::min<std::size_t>(units.size(), LF_FACESIZE - 1),
                record.lfFaceName);

    auto face = std::make_unique<NativeFace>();
    face->font.reset(CreateFontIndirectW(&record));
    const WindowContext context;
    const Selected selected(context.get(), face->font.get());
    TEXTMETRICA metrics = {};
    GetTextMetricsA(context.get(), &metrics);
    face->lineHeight = metrics.tmHeight;
    return NativeFacePtr(face.release());
}

std::int32_t nativeLineHeight(const NativeFace& face)
{
    return face.lineHeight;
}

PixelSize measureNativeText(const NativeFace& face, const std::string& text, std::int32_t width,
                            bool wrap)
{
    std::wstring units = shownWide(text);
    if (units.empty())
        return {};
    const Selected font(face.context.get(), face.font.get());
    RECT box = {0, 0, width, 0};
    DrawTextW(face.context.get(), units.data(), static_cast<int>(units.size()), &box,
              textFormat(wrap) | DT_CALCRECT);
    return {box.right, box.bottom};
}

bool drawNativeText(const NativeFace& face, const std::string& text, const NativeTextBox& box,
                    Coverage& picture)
{
    std::wstring units = shownWide(text);
    const HDC context = face.context.get();
    void* pixels = nullptr;
    const BitmapHandle bitmap = pixelBitmap(context, picture.width, picture.height, &pixels);
    if (!bitmap)
        return false;
    const Selected drawnInto(context, bitmap.get());
    const Selected font(context, face.font.get());
    SetBkMode(context, TRANSPARENT);
    RECT place = {0, box.top, picture.width, box.top + box.lines * face.lineHeight};
    const UINT format = textFormat(box.wrap) | alignmentFormat(box.alignment) | DT_END_ELLIPSIS;
    const auto drawn = [&](std::uint8_t ground, COLORREF color) {
        auto* const colors = static_cast<RGBQUAD*>(pixels);
        const RGBQUAD empty = {ground, ground, ground, 0};
        std::fill_n(colors, picture.pixels.size(), empty);
        SetTextColor(context, color);
        DrawTextW(context, units.data(), static_cast<int>(units.size()), &place, format);
        GdiFlush();
        return colors;
    };
    // GDI draws light text bolder than dark text; what is covered lies between. A channel is a
    // share, and where they differ, by the parts of a pixel, their sum is what the eye sees.
    constexpr std::uint8_t Full = 255;
    std::vector<int> dark(picture.pixels.size());
    std::transform(drawn(Full, RGB(0, 0, 0)), static_cast<RGBQUAD*>(pixels) + dark.size(),
                   dark.begin(), [](const RGBQUAD& color) { return 3 * Full - sumOf(color); });
    std::transform(dark.begin(), dark.end(), drawn(0, RGB(Full, Full, Full)),
                   picture.pixels.begin(), [](int covered, const RGBQUAD& color) {
                       return static_cast<std::uint8_t>((covered + sumOf(color) + 3) / 6);
                   });
    return true;
}

} // namespace nui
