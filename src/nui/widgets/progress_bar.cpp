#include "nui/widgets/progress_bar.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/image.h"

#include <array>
#include <cmath>
#include <string>

namespace nui {

namespace {

constexpr float PatternSeconds = 1;

/// The texture from `left` to `right`, 1 being its width.
std::array<TexturePoint, 4> textureSpan(float left, float right)
{
    return {{{left, 0}, {left, 1}, {right, 1}, {right, 0}}};
}

void readTexture(NuiReader& reader, const TextureRef*& texture, const char* key)
{
    std::string file;
    if (reader.readString(file, key, true))
        texture = readPicture(reader, file, key);
}

} // namespace

ProgressBar::ProgressBar(const ProgressBar& other) : Cloneable<ProgressBar, Widget>(other)
{
    adopt(other);
}

ProgressBar& ProgressBar::operator=(const ProgressBar& other)
{
    if (this == &other)
        return *this;
    Widget::operator=(other);
    adopt(other);
    runOrRest();
    return *this;
}

void ProgressBar::adopt(const ProgressBar& other)
{
    indeterminate_ = other.indeterminate_;
    value_ = other.value_;
    phase_ = other.phase_;
    image_ = other.image_;
    backImage_ = other.backImage_;
    candystickImage_ = other.candystickImage_;
    candystickBackImage_ = other.candystickBackImage_;
    secondaryColor_ = other.secondaryColor_;
}

ProgressBar::~ProgressBar()
{
    if (tween_ && Engine::exists())
        engine().tweens.kill(tween_);
}

bool ProgressBar::read(NuiReader& reader)
{
    Widget::read(reader);
    reader.readBool(indeterminate_, "indeterminate");
    reader.readFloat(value_, "value");
    readTexture(reader, image_, "imageFile");
    readTexture(reader, backImage_, "backImageFile");
    readTexture(reader, candystickImage_, "candystickImageFile");
    readTexture(reader, candystickBackImage_, "candystickBackImageFile");
    reader.readColor(secondaryColor_, "secondaryColor", "secondaryAlpha");
    return true;
}

void ProgressBar::setIndeterminate(bool set)
{
    indeterminate_ = set;
    runOrRest();
}

void ProgressBar::drawContent()
{
    if (!indeterminate_)
        drawValue();
    else if (candystickImage_ == nullptr)
        drawBlocks();
    else
        drawStripes();
}

/// Progress without an end fills all that can be drawn.
float ProgressBar::shownLength() const
{
    constexpr float FarAway = 32768;
    return std::min(value_ * width, FarAway);
}

void ProgressBar::drawValue() const
{
    const auto whole = textureSpan(0, 1);
    if (image_ == nullptr) {
        setColor(color, drawAlpha);
        fillRect(x, y, shownLength(), height);
        return;
    }
    if (backImage_ != nullptr) {
        setColor(secondaryColor_, drawAlpha);
        texturedQuad(backImage_, x, y, width, height, whole.data());
    }
    setColor(color, drawAlpha);
    texturedQuad(image_, x, y, shownLength(), height, whole.data());
}

/// Blocks that grow exponentially from left to right, and flow as the phase runs.
void ProgressBar::drawBlocks() const
{
    setColor(color, drawAlpha);
    const float end = x + width;
    float left = x;
    for (int block = 1; left < end; ++block) {
        const float pitch = std::expm1(static_cast<float>(block) + phase_);
        const float length = std::min(pitch - 2 * height, end - left);
        if (length > 0)
            fillRect(left, y, length, height);
        left += pitch;
    }
}

void ProgressBar::drawStripes() const
{
    setColor(OpaqueWhite, drawAlpha);
    const auto draw = [this](const TextureRef* texture, float length) {
        repeatAcross(*texture);
        const auto span = textureSpan(phase_, length / static_cast<float>(texture->width) + phase_);
        texturedQuad(texture, x, y, length, height, span.data());
    };
    if (candystickBackImage_ != nullptr)
        draw(candystickBackImage_, width);
    draw(candystickImage_, shownLength());
}

bool ProgressBar::canBeSeen() const
{
    if (parent == nullptr)
        return false;
    for (const Widget* widget = this; widget != nullptr; widget = widget->parent) {
        if (!widget->isDrawn() || !(widget->width > 0) || !(widget->height > 0))
            return false;
    }
    return true;
}

void ProgressBar::place()
{
    if (indeterminate_) {
        requireTween();
        runOrRest();
    }
}

void ProgressBar::requireTween()
{
    if (!tween_)
        tween_ = createTween(engine().tweens, PatternSeconds,
                             {tween_item::loop(), tween_item::value(&phase_, 1.0F)});
}

/// The pattern runs from the moment on when it can be seen, and no longer.
void ProgressBar::runOrRest()
{
    const bool runs = indeterminate_ && canBeSeen();
    if (runs)
        requireTween();
    if (tween_)
        tween_->setPaused(!runs);
}

} // namespace nui
