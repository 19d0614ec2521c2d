#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace ambrel {

/// Keeps one observer registered for as long as it lives.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(cancel_, other.cancel_);
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() {
        if (cancel_) {
            cancel_();
        }
    }

private:
    std::function<void()> cancel_;
};

/// A list of observers. Observers may come and go while one of them is being called: one that left is not
/// called any more, one that came is called from the next emission on.
template <typename... Arguments> class Signal {
public:
    using Observer = std::function<void(Arguments...)>;

    Subscription subscribe(Observer observer) {
        const auto id = state_->next++;
        state_->entries.push_back({id, std::make_shared<Observer>(std::move(observer))});
        return Subscription([state = std::weak_ptr<State>(state_), id] {
            if (const auto alive = state.lock()) {
                std::erase_if(alive->entries, [id](const Entry& entry) { return entry.id == id; });
            }
        });
    }

    void emit(Arguments... arguments) const {
        const auto state = state_;
        const auto snapshot = state->entries;
        for (const auto& entry : snapshot) {
            if (state->holds(entry.id)) {
                (*entry.observer)(arguments...);
            }
        }
    }

    [[nodiscard]] bool hasObservers() const { return !state_->entries.empty(); }

private:
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<Observer> observer;
    };
    struct State {
        std::uint64_t next = 1;
        std::vector<Entry> entries;

        [[nodiscard]] bool holds(std::uint64_t id) const {
            return std::any_of(entries.begin(), entries.end(), [id](const Entry& entry) { return entry.id == id; });
        }
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace ambrel
