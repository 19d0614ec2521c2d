#pragma once

#include "Core/Clock.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

using ProcessId = std::int32_t;

enum class ActivationPolicy {
    regular = 0,   ///< an ordinary application, the only kind that is monitored, listed or quit
    accessory = 1, ///< runs without a place in the task bar
};

/// One running process that owns windows, or has owned one. The object outlives the process; its facts stay
/// readable then, and its requests do nothing. Main thread only.
class RunningApplication {
public:
    virtual ~RunningApplication() = default;

    [[nodiscard]] virtual ProcessId processIdentifier() const = 0;
    /// Absent where the process could not be matched to an installed application.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier() const = 0;
    /// The name in the user's language.
    [[nodiscard]] virtual std::optional<std::string> localizedName() const = 0;
    /// What `Workspace::openApplication` takes to start it again.
    [[nodiscard]] virtual std::optional<std::filesystem::path> bundleURL() const = 0;
    [[nodiscard]] virtual ActivationPolicy activationPolicy() const = 0;
    [[nodiscard]] virtual bool isTerminated() const = 0;
    [[nodiscard]] virtual bool isHidden() const = 0;
    [[nodiscard]] virtual std::optional<Date> launchDate() const = 0;

    /// Asks the application to quit; it may ask its user, or refuse. False if the request could not be made.
    virtual bool terminate() = 0;
    /// Ends the process without asking it. False if the request could not be made.
    virtual bool forceTerminate() = 0;
    virtual bool hide() = 0;
};

using RunningApplicationRef = std::shared_ptr<RunningApplication>;

} // namespace ambrel
