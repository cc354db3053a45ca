#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"
#include "nui/events/widget_events.h"
#include "nui/layout/edges.h"

#include <cstdint>
#include <memory>
#include <string>

namespace nui {

class NuiReader;
class Screen;

/// What `visibility` is made of.
namespace visibility {
constexpr std::uint32_t InFlow = 1; ///< takes room in the parent
constexpr std::uint32_t Drawn = 2;  ///< drawn and hit by the pointer
constexpr std::uint32_t Clips = 4;  ///< cuts its drawing to its own rectangle

constexpr std::uint32_t Collapsed = 0;
constexpr std::uint32_t Hidden = InFlow;
constexpr std::uint32_t Overlapping = Drawn;
constexpr std::uint32_t Visible = InFlow | Drawn;
constexpr std::uint32_t ClippedOverlapping = Clips | Drawn;
constexpr std::uint32_t Clipped = Clips | Visible;
} // namespace visibility

/// Place along the parent's main axis (gravity) or across it (alignment).
enum class Placement : std::uint32_t { Start = 0, Center = 1, End = 2 };

/// The looks of a widget's states. Exists only for widgets that have one of the last three.
struct StateTemplates {
    WidgetPtr normal; ///< the template that the widget was built from, if any
    WidgetPtr pressed;
    WidgetPtr over;
    WidgetPtr disabled;
};

/// The base of everything on a screen: a rectangle with a size rule, colours, a border, states
/// and listeners. Parents and the engine hold it by WidgetPtr; `parent` is cleared when the
/// parent lets go or dies. Fields are open: layout, drawing, tweens and pages work on them.
class Widget : public std::enable_shared_from_this<Widget> {
public:
    Widget() = default;
    /// Shares the listeners with the source, as cloneObject() wants.
    Widget(const Widget& other);
    /// Takes over everything but the parent and the listeners.
    Widget& operator=(const Widget& other);
    virtual ~Widget() = default;

    /// Draws what is between background and border; x, y, width and height are final.
    virtual void drawContent() {}
    /// `position` is the displacement handed down so far: scrolls and offsets.
    virtual void drawChildren(Point position);
    /// Sets the width and height of the axes that are sized by content.
    virtual void measure() {}
    /// Works out the size; false while it isn't known. `flags` are those of layout_flag.
    virtual bool layout(std::uint32_t flags);
    /// Called when the size is final.
    virtual void place() {}
    /// Reads the keys of the current object, or those that begin with the reader's prefix.
    virtual bool read(NuiReader& reader);
    /// Reads the keys "name.key" that an outer object holds for this widget.
    virtual bool readOverrides(NuiReader& reader, bool skipSelf);
    /// Takes over the looks of a state; null changes nothing.
    virtual void applyTemplate(const Widget* look);
    /// Overlays are skipped by their parent's placing and measuring.
    [[nodiscard]] virtual bool isOverlay() const { return false; }
    /// The first hit among this widget's tree and then each ancestor's.
    [[nodiscard]] virtual Widget* findUp(const std::string& wanted);
    [[nodiscard]] virtual Widget* findByName(const std::string& wanted);
    /// Makes the target's fields equal to this widget's.
    virtual void copyTo(Widget& target) const { target.Widget::operator=(*this); }
    /// A copy of the same class with a share in this widget's listeners; for clone().
    [[nodiscard]] virtual WidgetPtr cloneObject() const;
    /// A copy without id and parent, with listeners of its own that serve the copy.
    [[nodiscard]] virtual WidgetPtr clone() const;
    virtual void broadcast(WidgetEvent& event);
    virtual void setEnabled(bool enabled);

    /// Name of the class in layout files.
    [[nodiscard]] virtual const char* className() const { return "Widget"; }

    /// Draws background, content, children and border at the local position plus `position`.
    void draw(Point position, float inheritedAlpha);

    /// Whether this widget and all its ancestors are enabled.
    [[nodiscard]] bool isChainEnabled() const;
    /// Back to the normal or the disabled look.
    void resetState();
    /// Whether it and all its ancestors up to a Screen are drawn and have a size.
    [[nodiscard]] bool isOnScreen() const;
    /// Whether the pointer hits it, in window pixels; a disabled one is never hit.
    [[nodiscard]] bool isHitAt(std::int32_t pointX, std::int32_t pointY) const;
    /// Takes the template's fields, but neither its place in the tree nor its id and listeners.
    void copyFromTemplate(const Widget& source);
    /// The listeners, made on first use.
    ListenerList& listenerList();
    [[nodiscard]] const std::shared_ptr<ListenerList>& listeners() const { return listeners_; }
    /// The Screen at the root of the tree, or null.
    [[nodiscard]] Screen* screen();
    [[nodiscard]] bool isDrawn() const { return (visibility & visibility::Drawn) != 0; }
    [[nodiscard]] bool isInFlow() const { return (visibility & visibility::InFlow) != 0; }
    /// `other` itself or one of its ancestors is this widget.
    [[nodiscard]] bool contains(const Widget* other) const;

    // Accessors by axis, for the layouts.
    [[nodiscard]] float& extent(Axis axis) { return axis == Axis::X ? width : height; }
    [[nodiscard]] float& local(Axis axis) { return axis == Axis::X ? localX : localY; }
    [[nodiscard]] SizeMode mode(Axis axis) const
    {
        return axis == Axis::X ? widthMode : heightMode;
    }
    [[nodiscard]] float value(Axis axis) const
    {
        return axis == Axis::X ? widthValue : heightValue;
    }
    /// Resolves the size of one axis without a reference; see resolveOwnSize.
    void resolveExtent(Axis axis, float fallback);
    /// Cuts both sizes to maxWidth and maxHeight.
    void applyLimits();

    Edges margin;
    Color color = OpaqueWhite;
    Color borderColor = 0;
    Color topColor = 0; ///< these four are drawn; borderColor only fills them while reading
    Color rightColor = 0;
    Color bottomColor = 0;
    Color leftColor = 0;
    Color backgroundColor = 0;
    SizeMode widthMode = Weight;
    SizeMode heightMode = Weight;
    std::uint32_t visibility = visibility::Visible;
    Placement gravity = Placement::Start;
    Placement alignment = Placement::Start;
    float widthValue = 1;
    float heightValue = 1;
    std::unique_ptr<StateTemplates> stateTemplates;
    float x = 0; ///< on the window, whole pixels; set while drawing
    float y = 0;
    float localX = 0; ///< on the window, less the scrolls and offsets of the ancestors
    float localY = 0;
    float width = 0; ///< in pixels; negative while not known
    float height = 0;
    float maxWidth = 0; ///< 0 is no limit
    float maxHeight = 0;
    float offsetX = 0; ///< added while drawing; for tweens
    float offsetY = 0;
    float alpha = 1;
    Widget* parent = nullptr;
    std::uint32_t serial = 0; ///< the reader's count of built widgets
    std::string id;           ///< key in the reader's map
    std::string name;         ///< for look-ups in the tree and for key prefixes
    std::string toolTip;      ///< a language key
    float drawAlpha = 1;      ///< own and inherited; set while drawing
    bool touchEnabled = true;

protected:
    /// What layout() of a plain widget does: measures what is sized by content and isn't known
    /// yet. False while a side is not known.
    bool measureUnknown();
    /// Whether measureUnknown() has something to measure.
    [[nodiscard]] bool isToBeMeasured() const;

private:
    void drawBorder() const;

    std::shared_ptr<ListenerList> listeners_;
};

/// Bits of layout(); bit 8 is only carried down.
namespace layout_flag {
constexpr std::uint32_t Force = 1;
constexpr std::uint32_t ResolveOwnWidth = 2;
constexpr std::uint32_t ResolveOwnHeight = 4;
constexpr std::uint32_t ResolveOwnSize = ResolveOwnWidth | ResolveOwnHeight;
/// With Force: the caller wants to know the widget's own size, and lays it out again, without
/// this bit, before anything else of it is read. What is inside may be left as it is.
constexpr std::uint32_t SizeOnly = 16;
constexpr std::uint32_t CarriedMask = ~7U;
constexpr std::uint32_t First = 15;
constexpr std::uint32_t Again = 7;
} // namespace layout_flag

/// Gives a class its cloneObject() and copyTo(): `Self` is the class, `Base` what it extends.
template <class Self, class Base> class Cloneable : public Base {
public:
    using Base::Base;

    [[nodiscard]] WidgetPtr cloneObject() const override
    {
        return std::make_shared<Self>(static_cast<const Self&>(*this));
    }

    /// A target of another class takes only what the classes have in common.
    void copyTo(Widget& target) const override
    {
        if (auto* const same = dynamic_cast<Self*>(&target))
            *same = static_cast<const Self&>(*this);
        else
            Base::copyTo(target);
    }
};

} // namespace nui
