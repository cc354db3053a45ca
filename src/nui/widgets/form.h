#pragma once

#include "nui/events/widget_events.h"

#include <memory>
#include <vector>

namespace nui {

class Container;
class Form;

/// A widget that takes the keyboard and stands in a tab order. Its neighbours are known to
/// the form only.
class FormItem {
public:
    FormItem() = default;
    /// A copy stands in no form yet.
    FormItem(const FormItem& other) : isDefault(other.isDefault) {}
    FormItem& operator=(const FormItem& other)
    {
        isDefault = other.isDefault;
        return *this;
    }
    virtual ~FormItem() = default;

    bool isDefault = false; ///< what Return in the form activates; of several, the last

private:
    friend class Form;

    struct Neighbours {
        const Form* form = nullptr; ///< the one that linked it last
        std::weak_ptr<FormItem> previous;
        std::weak_ptr<FormItem> next;
    };

    std::unique_ptr<Neighbours> neighbours_;
};

/// The tab order of a container's form items, in the order of the tree, and what Return does.
/// Owned by the container; the items outlive it at will.
class Form {
public:
    /// Links every form item below the container and listens to their keys.
    explicit Form(Container& root);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    ~Form();

    /// Builds the nearest form around the widget anew, as items below it have come or gone.
    static void renewAround(Widget& changed);

    /// Whom Return activates, a widget below the root; null for nobody.
    void setDefaultItem(const WidgetPtr& widget) { defaultItem_ = widget; }
    [[nodiscard]] WidgetPtr defaultItem() const { return defaultItem_.lock(); }

    [[nodiscard]] std::shared_ptr<FormItem> first() const { return first_.lock(); }
    [[nodiscard]] std::shared_ptr<FormItem> last() const { return last_.lock(); }

private:
    static void onKey(WidgetEvent& event);
    static void onFocusGained(WidgetEvent& event);
    /// Also for the pointer's leaving.
    static void onFocusLost(WidgetEvent& event);
    void addItemsBelow(Container& container);
    void add(const WidgetPtr& widget, FormItem& item);
    void moveFocus(Widget& sender, bool forward) const;
    static void activateDefault(Widget& sender);
    [[nodiscard]] bool canTakeFocus(const Widget& widget) const;

    Container& root_;
    std::weak_ptr<Widget> defaultItem_;
    std::vector<std::weak_ptr<FormItem>> items_; ///< all that listen, for the farewell
    std::weak_ptr<FormItem> first_;
    std::weak_ptr<FormItem> last_;
};

} // namespace nui
