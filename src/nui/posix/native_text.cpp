#include "nui/text/native_text.h"

#include "misc/text.h"
#include "nui/text/shown_text.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace nui {

namespace {

constexpr const char* Ellipsis = "...";

struct Unreference {
    void operator()(PangoContext* context) const { g_object_unref(context); }
    void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
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

Owned<PangoLayout> layoutOf(const NativeFace& face, std::string_view text)
{
    pango_context_set_language(face.context.get(), textLanguage());
    Owned<PangoLayout> layout(pango_layout_new(face.context.get()));
    pango_layout_set_font_description(layout.get(), face.description.get());
    pango_layout_set_auto_dir(layout.get(), FALSE);
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    // A name or a path that is cut anywhere must not get a hyphen that is not in it.
    const Owned<PangoAttrList> attributes(pango_attr_list_new());
    pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
    pango_layout_set_attributes(layout.get(), attributes.get());
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    return layout;
}

std::int32_t widthOf(PangoLayoutLine* line)
{
    PangoRectangle extents = {};
    pango_layout_line_get_extents(line, nullptr, &extents);
    return PANGO_PIXELS_CEIL(extents.width);
}

std::size_t startOfCharacter(const std::string& text, std::size_t byte)
{
    if (byte >= text.size())
        return text.size();
    const char* const place = g_utf8_find_prev_char(text.data(), text.data() + byte + 1);
    return static_cast<std::size_t>(place - text.data());
}

/// A text in lines. Pango's own may differ in height where faces stand in for each other; these
/// are placed by the face's height alone.
class Lines {
public:
    Lines(const NativeFace& face, const std::string& text, std::int32_t width, bool wrap)
        : face_(face), text_(nrd::misc::to_utf8(shownText(text))), width_(width)
    {
        // A line feed at the end begins no line.
        for (std::size_t start = 0; start < text_.size();) {
            const std::size_t end = std::min(text_.find('\n', start), text_.size());
            if (wrap)
                addWrapped(start, end);
            else
                addWhole(start, end);
            start = end + 1;
        }
    }

    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(lines_.size()); }
    [[nodiscard]] PangoLayoutLine* at(std::int32_t index) const
    {
        return lines_[static_cast<std::size_t>(index)].line;
    }

    /// Leaves out what is behind so many lines, and ends the last of them in "...".
    void cutBehind(std::int32_t lines)
    {
        if (count() <= lines)
            return;
        lines_.resize(static_cast<std::size_t>(lines));
        lines_.back() = endedLine(lines_.back().start, lines_.back().end);
    }
    /// Cuts each line that is too wide in this way.
    void cutAtWidth()
    {
        for (Line& line : lines_) {
            if (widthOf(line.line) > width_)
                line = endedLine(line.start, line.end);
        }
    }

private:
    struct Line {
        PangoLayoutLine* line;
        std::size_t start; ///< in the text
        std::size_t end;
    };

    PangoLayout* keep(Owned<PangoLayout> layout)
    {
        layouts_.push_back(std::move(layout));
        return layouts_.back().get();
    }

    void addWhole(std::size_t start, std::size_t end)
    {
        PangoLayout* const layout = keep(layoutOf(face_, piece(start, end)));
        lines_.push_back({pango_layout_get_line_readonly(layout, 0), start, end});
    }

    /// In pieces of some lines each: the time that Pango takes grows with the square of a text.
    void addWrapped(std::size_t start, std::size_t end)
    {
        constexpr std::size_t FirstPiece = 1024;
        for (std::size_t length = FirstPiece;;) {
            const std::size_t stop = startOfCharacter(text_, std::min(start + length, end));
            Owned<PangoLayout> layout = layoutOf(face_, piece(start, stop));
            pango_layout_set_width(layout.get(), width_ * PANGO_SCALE);
            const int count = pango_layout_get_line_count(layout.get());
            if (stop < end && count == 1) {
                length *= 2; // no line of the text is known yet
                continue;
            }
            // More may belong to the last line than the piece has.
            const int known = stop < end ? count - 1 : count;
            PangoLayout* const kept = keep(std::move(layout));
            std::size_t next = stop;
            for (int index = 0; index < count; ++index) {
                PangoLayoutLine* const line = pango_layout_get_line_readonly(kept, index);
                const std::size_t first = start + static_cast<std::size_t>(line->start_index);
                if (index < known)
                    lines_.push_back({line, first, first + static_cast<std::size_t>(line->length)});
                else
                    next = first;
            }
            if (stop == end)
                return;
            start = next;
        }
    }

    /// As much of a piece of the text as there is room for in front of "...".
    Line endedLine(std::size_t start, std::size_t end)
    {
        const auto ended = [&](std::size_t stop) {
            return layoutOf(face_, std::string(piece(start, stop)) + Ellipsis);
        };
        const auto fits = [&](std::size_t stop) {
            const Owned<PangoLayout> layout = ended(stop);
            return widthOf(pango_layout_get_line_readonly(layout.get(), 0)) <= width_;
        };
        // What surely has room, and what surely has none: first in steps that double, as Pango's
        // time grows with the square of a text, then by halves.
        std::size_t shorter = start;
        std::size_t longer = end;
        for (std::size_t length = 64; start + length < end; length *= 2) {
            const std::size_t stop = startOfCharacter(text_, start + length);
            if (!fits(stop)) {
                longer = stop;
                break;
            }
            shorter = stop;
        }
        if (longer == end && fits(end))
            shorter = end;
        while (shorter < longer) {
            std::size_t middle = startOfCharacter(text_, shorter + (longer - shorter + 1) / 2);
            if (middle <= shorter)
                middle = longer; // the next character
            if (fits(middle))
                shorter = middle;
            else
                longer = startOfCharacter(text_, middle - 1);
        }
        Owned<PangoLayout> layout = ended(shorter);
        PangoLayoutLine* const line = pango_layout_get_line_readonly(layout.get(), 0);
        keep(std::move(layout));
        return {line, start, end};
    }

    [[nodiscard]] std::string_view piece(std::size_t start, std::size_t end) const
    {
        return std::string_view(text_).substr(start, end - start);
    }

    const NativeFace& face_;
    std::string text_;
    std::int32_t width_;
    std::vector<Owned<PangoLayout>> layouts_; ///< that the lines are in
    std::vector<Line> lines_;
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

NativeFacePtr openNativeFace(const NativeFont& font, std::int32_t pixels)
{
    auto face = std::make_unique<NativeFace>();
    face->description.reset(pango_font_description_new());
    pango_font_description_set_family(face->description.get(), font.face.c_str());
    if (font.weight > 0)
        pango_font_description_set_weight(face->description.get(),
                                          static_cast<PangoWeight>(font.weight));
    if (font.italic)
        pango_font_description_set_style(face->description.get(), PANGO_STYLE_ITALIC);
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
    const Lines lines(face, text, width, wrap);
    PixelSize size{.height = lines.count() * face.lineHeight};
    for (std::int32_t line = 0; line < lines.count(); ++line)
        size.width = std::max(size.width, widthOf(lines.at(line)));
    return size;
}

bool drawNativeText(const NativeFace& face, const std::string& text, const NativeTextBox& box,
                    Coverage& picture)
{
    const Owned<cairo_surface_t> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, picture.width, picture.height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        return false;
    Lines lines(face, text, picture.width, box.wrap);
    lines.cutBehind(box.lines);
    lines.cutAtWidth();
    const Owned<cairo_t> cairo(cairo_create(surface.get()));
    for (std::int32_t line = 0; line < lines.count(); ++line) {
        const std::int32_t left = leftOf(picture.width - widthOf(lines.at(line)), box.alignment);
        cairo_move_to(cairo.get(), left, box.top + face.ascent + line * face.lineHeight);
        pango_cairo_show_layout_line(cairo.get(), lines.at(line));
    }
    cairo_surface_flush(surface.get());
    const unsigned char* row = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    const auto width = static_cast<std::size_t>(picture.width);
    for (auto out = picture.pixels.begin(); out != picture.pixels.end(); row += stride)
        out = std::copy_n(row, width, out);
    return true;
}

} // namespace nui
