#pragma once

#include "Core/Clock.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

using ProcessId = std::int32_t;

enum class ActivationPolicy {
    regular = 0,   ///< an ordinary application, the only kind that is monitored, listed or quit
    accessory = 1, ///< runs without a place in the task bar
};

/// What became of a request to quit.
enum class QuitOutcome {
    sent,
    dropped,     ///< the last look forbade it
    nothingSent, ///< it was asked before and may not be asked again, or can't be reached
    gone,        ///< it had ended by itself
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

    /// Asks the application to quit; it may ask its user, or refuse. It may take some seconds to learn how to ask:
    /// right before anything is sent `lastLook` is called, and only its true lets it go. `done` is called once, maybe
    /// before this returns.
    virtual void terminate(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done) = 0;
    /// Ends the process without asking it. False if the request could not be made.
    virtual bool forceTerminate() = 0;
    /// Asks for all of its windows to be taken off the screen. False if there is none to be taken, or the request could
    /// not be made; whether the desktop complies shows in `isHidden`.
    virtual bool hide() = 0;
};

using RunningApplicationRef = std::shared_ptr<RunningApplication>;

} // namespace ambrel
