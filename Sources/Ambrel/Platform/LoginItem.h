#pragma once

#include <optional>
#include <string>

namespace ambrel {

enum class LoginItemStatus {
    notRegistered,
    enabled,          ///< the next login starts the program
    requiresApproval, ///< registered, but the user or the desktop has turned it off
    notFound,         ///< registered, but what it starts is not there
};

/// Why something could not be done, in words; absent when it was done.
using LoginItemFailure = std::optional<std::string>;

/// What starts this program when the user logs in. Main thread only.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    [[nodiscard]] virtual LoginItemStatus status() const = 0;
    /// For the user's explicit wish alone: it takes the place of an "off" that was said elsewhere.
    virtual LoginItemFailure registerItem() = 0;
    virtual LoginItemFailure unregisterItem() = 0;
    /// Lets a registration that is on, but whose program has gone, start this one. To be called at start-up; changes
    /// nothing else.
    virtual LoginItemFailure followProgram() = 0;
};

} // namespace ambrel
