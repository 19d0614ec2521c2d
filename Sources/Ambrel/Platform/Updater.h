#pragma once

#include "Core/Signal.h"

#include <string>

namespace ambrel {

/// The way by which this program gets newer versions of itself: that of the desktop's packages, and never one of its
/// own. Nothing of it is waited for. Main thread only.
class Updater {
public:
    virtual ~Updater() = default;

    /// Looks for the service, and from then on asks it daily for a newer version if it may. To be called once.
    virtual void start() = 0;
    /// A service is there to be asked. False until it has been found.
    [[nodiscard]] virtual bool isAvailable() const = 0;

    /// Kept by the updater itself, across runs; true at first.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;

    /// Shows the user where updates come from.
    virtual void checkForUpdates() = 0;

    Signal<bool> availabilityDidChange;
    /// The service offers this version. Told at each question anew.
    Signal<const std::string&> updateOffered;
};

} // namespace ambrel
