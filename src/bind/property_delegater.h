#pragma once

#include "bind/signal.h"

#include <memory>
#include <string>

namespace nrd::bind {

/// How a widget reaches a property without knowing its class.
template <class T> class property_delegater_base {
public:
    property_delegater_base() = default;
    property_delegater_base(const property_delegater_base&) = default;
    property_delegater_base& operator=(const property_delegater_base&) = default;
    virtual ~property_delegater_base() = default;

    virtual property_delegater_base& set(const T& value) = 0;
    /// Another one for the same property.
    [[nodiscard]] virtual std::unique_ptr<property_delegater_base> clone() const = 0;
    virtual void setBoundName(const std::string& name) = 0;
    virtual void assign(const T& value) = 0;
    [[nodiscard]] virtual T get() const = 0;
    [[nodiscard]] virtual bool isExplicit() const = 0;
    [[nodiscard]] virtual signal& changedSignal() = 0;
    [[nodiscard]] virtual signal& stateSignal() = 0;
};

/// For a property of class `P`, which it does not own.
template <class T, class P> class property_delegater_impl : public property_delegater_base<T> {
public:
    explicit property_delegater_impl(P& property) : property_(&property) {}

    property_delegater_impl& set(const T& value) override
    {
        property_->set(value);
        return *this;
    }
    [[nodiscard]] std::unique_ptr<property_delegater_base<T>> clone() const override
    {
        return std::make_unique<property_delegater_impl>(*this);
    }
    void setBoundName(const std::string& name) override { property_->boundName = name; }
    void assign(const T& value) override { property_->set(value); }
    [[nodiscard]] T get() const override { return property_->get(); }
    [[nodiscard]] bool isExplicit() const override { return property_->isExplicit(); }
    [[nodiscard]] signal& changedSignal() override { return property_->changed; }
    [[nodiscard]] signal& stateSignal() override { return property_->stateChanged; }

private:
    P* property_;
};

template <class T, template <class> class P>
[[nodiscard]] std::unique_ptr<property_delegater_base<T>> delegate(P<T>& property)
{
    return std::make_unique<property_delegater_impl<T, P<T>>>(property);
}

} // namespace nrd::bind
