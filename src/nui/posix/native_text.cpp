#include "nui/text/native_text.h"

#include "misc/text.h"
#include "nui/text/shown_text.h"

#include <pango/pangocairo.h>

#include <algorithm>

namespace nui {

namespace {

constexpr const char* Ellipsis = "...";

struct Unreference {
    void operator()(PangoContext* context) const { g_object_unref(context); }
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
    void operator()(PangoFontDescription* text) const { pango_font_description_free(text); }
    void operator()(PangoFontMetrics* metrics) const { pango_font_metrics_unref(metrics); }
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

template <class T> using Owned = std::unique_ptr<T, Unreference>;

PangoLanguage*& textLanguage()
{
    static PangoLanguage* language = nullptr;
    return language;
}

/// Outlines fitted to the rows of pixels, and characters placed on whole ones.
Owned<PangoContext> crispContext()
{
    Owned<PangoContext> context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    const Owned<cairo_font_options_t> options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_context_set_round_glyph_positions(context.get(), TRUE);
    return context;
}

} // namespace

struct NativeFace {
    Owned<PangoContext> context = crispContext();
    Owned<PangoFontDescription> description;
    std::int32_t ascent = 0;
    std::int32_t lineHeight = 0;
};

namespace {

/// A text in lines. The platform's lines may differ in height where faces stand in for each
/// other; these are placed by the face's own height.
class Lines {
public:
    Lines(const NativeFace& face, const std::string& text)
        : text_(nrd::misc::to_utf8(shownText(text))), layout_(pango_layout_new(face.context.get()))
    {
        pango_context_set_language(face.context.get(), textLanguage());
        pango_layout_context_changed(layout_.get());
        pango_layout_set_font_description(layout_.get(), face.description.get());
        pango_layout_set_auto_dir(layout_.get(), FALSE);
        pango_layout_set_wrap(layout_.get(), PANGO_WRAP_WORD_CHAR);
        setText(text_);
    }

    void wrapAt(std::int32_t width) { pango_layout_set_width(layout_.get(), width * PANGO_SCALE); }

    /// Cuts each line that is too wide, instead of wrapping it.
    void cutAt(std::int32_t width)
    {
        wrapAt(width);
        pango_layout_set_ellipsize(layout_.get(), PANGO_ELLIPSIZE_END);
    }

    /// Leaves out what is behind so many lines, and ends the last of them in an ellipsis.
    void cutBehind(std::int32_t lines)
    {
        if (count() <= lines)
            return;
        const PangoLayoutLine* const last = at(lines - 1);
        const auto first = static_cast<std::size_t>(last->start_index);
        std::size_t end = first + static_cast<std::size_t>(last->length);
        for (setText(text_.substr(0, end) + Ellipsis); count() > lines && end > first;) {
            end = startOfCharacter(end - 1);
            setText(text_.substr(0, end) + Ellipsis);
        }
    }

    [[nodiscard]] std::int32_t count() const { return pango_layout_get_line_count(layout_.get()); }
    [[nodiscard]] PangoLayoutLine* at(std::int32_t index) const
    {
        return pango_layout_get_line_readonly(layout_.get(), index);
    }
    [[nodiscard]] std::int32_t widthOf(std::int32_t index) const
    {
        PangoRectangle extents = {};
        pango_layout_line_get_extents(at(index), nullptr, &extents);
        return PANGO_PIXELS_CEIL(extents.width);
    }

private:
    void setText(const std::string& text)
    {
        pango_layout_set_text(layout_.get(), text.data(), static_cast<int>(text.size()));
    }
    [[nodiscard]] std::size_t startOfCharacter(std::size_t byte) const
    {
        const char* const text = text_.data();
        const char* const place = g_utf8_find_prev_char(text, text + byte + 1);
        return place != nullptr ? static_cast<std::size_t>(place - text) : 0;
    }

    std::string text_;
    Owned<PangoLayout> layout_;
};

std::int32_t leftOf(std::int32_t free, TextAlignment alignment)
{
    switch (alignment) {
    case TextAlignment::Center:
        return free / 2;
    case TextAlignment::Right:
        return free;
    default:
        return 0;
    }
}

} // namespace

void CloseNativeFace::operator()(NativeFace* face) const
{
    const std::unique_ptr<NativeFace> owned(face);
}

void setNativeTextLanguage(const std::string& code)
{
    textLanguage() = pango_language_from_string(code.c_str());
}

NativeFacePtr openNativeFace(const std::string& name, std::int32_t pixels)
{
    auto face = std::make_unique<NativeFace>();
    face->description.reset(pango_font_description_new());
    pango_font_description_set_family(face->description.get(), name.c_str());
    pango_font_description_set_absolute_size(face->description.get(), pixels * PANGO_SCALE);
    const Owned<PangoFontMetrics> metrics(
        pango_context_get_metrics(face->context.get(), face->description.get(), nullptr));
    face->ascent = PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(metrics.get()));
    face->lineHeight =
        face->ascent + PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(metrics.get()));
    return NativeFacePtr(face.release());
}

std::int32_t nativeLineHeight(const NativeFace& face)
{
    return face.lineHeight;
}

PixelSize measureNativeText(const NativeFace& face, const std::string& text, std::int32_t width,
                            bool wrap)
{
    if (text.empty())
        return {};
    Lines lines(face, text);
    if (wrap)
        lines.wrapAt(width);
    PixelSize size{.height = lines.count() * face.lineHeight};
    for (std::int32_t line = 0; line < lines.count(); ++line)
        size.width = std::max(size.width, lines.widthOf(line));
    return size;
}

void drawNativeText(const NativeFace& face, const std::string& text, const NativeTextBox& box,
                    Coverage& picture)
{
    Lines lines(face, text);
    if (box.wrap)
        lines.wrapAt(picture.width);
    else
        lines.cutAt(picture.width);
    lines.cutBehind(box.lines);

    const Owned<cairo_surface_t> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, picture.width, picture.height));
    const Owned<cairo_t> cairo(cairo_create(surface.get()));
    for (std::int32_t line = 0; line < std::min(lines.count(), box.lines); ++line) {
        const std::int32_t left = leftOf(picture.width - lines.widthOf(line), box.alignment);
        cairo_move_to(cairo.get(), left, box.top + face.ascent + line * face.lineHeight);
        pango_cairo_show_layout_line(cairo.get(), lines.at(line));
    }
    cairo_surface_flush(surface.get());
    const unsigned char* row = cairo_image_surface_get_data(surface.get());
    if (row == nullptr)
        return;
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    const auto width = static_cast<std::size_t>(picture.width);
    for (auto out = picture.pixels.begin(); out != picture.pixels.end(); row += stride)
        out = std::copy_n(row, width, out);
}

} // namespace nui
