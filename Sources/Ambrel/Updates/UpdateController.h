#pragma once

#include "Core/Logger.h"
#include "Core/Observable.h"

#include <optional>
#include <string>

namespace ambrel {

class Platform;
class Updater;

/// Looks for newer versions; its creation alone starts that. Outside an application bundle it does nothing. Main
/// thread only.
class UpdateController {
public:
    [[nodiscard]] static UpdateController& shared();

    explicit UpdateController(Platform& platform);

    /// Starts an update check, which the desktop shows.
    void checkForUpdates();

    /// The program runs from an application bundle.
    const bool updaterSupported;
    /// What is set here is kept by the updater.
    Observable<bool> automaticallyChecksForUpdates{false};
    /// A service is there that knows of updates.
    Observable<bool> isAvailable{false};
    /// The newer version that is offered, if one is.
    Observable<std::optional<std::string>> offeredVersion;

private:
    void start();

    Updater& updater_;
    Logger log_{"update"};
    Subscription choice_;
    Subscription availability_;
    Subscription offers_;
};

} // namespace ambrel
