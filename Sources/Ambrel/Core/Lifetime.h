#pragma once

#include <memory>
#include <utility>

namespace ambrel {

/// Lets a closure outlive its owner: work wrapped by `guard` does nothing once this object is gone.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;
    ~Lifetime() = default;

    template <typename Work> [[nodiscard]] auto guard(Work work) const {
        return [alive = std::weak_ptr<const bool>(token_), work = std::move(work)](auto&&... arguments) {
            // The token stays held for the length of the call only by the owner itself.
            if (!alive.expired()) {
                work(std::forward<decltype(arguments)>(arguments)...);
            }
        };
    }

private:
    std::shared_ptr<const bool> token_ = std::make_shared<const bool>(true);
};

} // namespace ambrel
