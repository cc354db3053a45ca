#pragma once

#include "nui/animation/tween.h"
#include "nui/draw/texture.h"
#include "nui/widgets/widget.h"

#include <memory>

namespace nui {

/// Shows a fraction of work done, or a running pattern that says only that work goes on. The
/// pattern costs frames only while it can be seen. Textures belong to the engine's cache.
class ProgressBar : public Cloneable<ProgressBar, Widget> {
public:
    ProgressBar() = default;
    /// A copy runs by itself.
    ProgressBar(const ProgressBar& other);
    ProgressBar& operator=(const ProgressBar& other);
    ~ProgressBar() override;

    void drawContent() override;
    void place() override;
    bool read(NuiReader& reader) override;
    [[nodiscard]] const char* className() const override { return "ProgressBar"; }

    [[nodiscard]] float value() const { return value_; }
    /// From 0 to 1; drawn as it is, also beyond.
    void setValue(float value) { value_ = value; }
    [[nodiscard]] bool isIndeterminate() const { return indeterminate_; }
    void setIndeterminate(bool set);
    /// Whether the pattern moves.
    [[nodiscard]] bool isRunning() const { return tween_ && !tween_->isPaused(); }

private:
    void adopt(const ProgressBar& other);
    void requireTween();
    void runOrRest();
    [[nodiscard]] float shownLength() const;
    void drawValue() const;
    void drawBlocks() const;
    void drawStripes() const;
    [[nodiscard]] bool canBeSeen() const;

    bool indeterminate_ = true;
    float value_ = 0;
    float phase_ = 0; ///< of the pattern, from 0 to 1
    std::shared_ptr<CTween> tween_;
    const TextureRef* image_ = nullptr;
    const TextureRef* backImage_ = nullptr;
    const TextureRef* candystickImage_ = nullptr;
    const TextureRef* candystickBackImage_ = nullptr;
    Color secondaryColor_ = OpaqueBlack;
};

} // namespace nui
