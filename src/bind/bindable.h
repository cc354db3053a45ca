#pragma once

#include "bind/property_delegater.h"
#include "bind/signal.h"

#include <memory>
#include <string>
#include <utility>

namespace nrd::bind {

/// The second base of a widget that shows a property's value. Changes travel at once, in both
/// directions, and stop where a value is equal: no flag guards against the echo, as a widget that
/// normalises a value has to give it back to the model. May die before its property, never after.
template <class T> class bindable {
public:
    bindable() = default;
    /// A copy is bound to the same property, and shows its changes itself.
    bindable(const bindable& other) { copyBinding(other); }
    bindable& operator=(const bindable& other)
    {
        if (this != &other)
            copyBinding(other);
        return *this;
    }
    virtual ~bindable() = default;

    virtual void setWidgetValue(const T& value) = 0;
    virtual void setWidgetEnabled(bool enabled) = 0;
    [[nodiscard]] virtual T getWidgetValue() = 0;
    /// Sends the widget's value to the model; nothing while unbound.
    virtual void pushValue() { send(getWidgetValue()); }

    /// The widget shows the property's value from now on; a former property is let go.
    void bind(std::unique_ptr<property_delegater_base<T>> delegater)
    {
        delegater->setBoundName(widgetId());
        delegate_ = delegater->clone();
        listen();
        setWidgetValue(delegate_->get());
    }

    [[nodiscard]] bool isBound() const { return delegate_ != nullptr; }

protected:
    [[nodiscard]] virtual std::string widgetId() const = 0;
    /// Shows what the model has, though nothing was emitted.
    void showModel()
    {
        if (delegate_)
            setWidgetValue(delegate_->get());
    }
    /// To the model; nothing while unbound.
    void send(const T& value)
    {
        if (delegate_)
            delegate_->set(value);
    }

private:
    void copyBinding(const bindable& other)
    {
        valueLink_.drop();
        delegate_ = other.delegate_ ? other.delegate_->clone() : nullptr;
        if (delegate_)
            listen();
    }

    void listen()
    {
        valueLink_ =
            delegate_->changedSignal().connect([this] { setWidgetValue(delegate_->get()); });
    }

    // The links go first when the object dies.
    std::unique_ptr<property_delegater_base<T>> delegate_;
    link valueLink_;
    link stateLink_;
};

/// For a widget of class `W`, which is the class that derives from this. Calls only members of W.
template <class W, class T> class bindable_nui : public bindable<T> {
public:
    void setWidgetEnabled(bool enabled) override { static_cast<W&>(*this).setEnabled(enabled); }

protected:
    [[nodiscard]] std::string widgetId() const override { return static_cast<const W&>(*this).id; }
};

} // namespace nrd::bind
