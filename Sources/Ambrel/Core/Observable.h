#pragma once

#include "Core/Signal.h"

namespace ambrel {

/// A value that tells its subscribers of every assignment, also of one that changes nothing.
template <typename Value> class Observable {
public:
    explicit Observable(Value value = {}) : value_(std::move(value)) {}

    [[nodiscard]] const Value& get() const { return value_; }

    void set(Value value) {
        willChange.emit();
        value_ = std::move(value);
        values_.emit(value_);
    }

    /// Delivers the current value at once, and each new one after it.
    Subscription subscribe(std::function<void(const Value&)> observer) {
        observer(value_);
        return values_.subscribe(std::move(observer));
    }

    /// Announces an assignment before the value is replaced.
    Signal<> willChange;

private:
    Value value_;
    Signal<const Value&> values_;
};

} // namespace ambrel
