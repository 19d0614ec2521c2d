#pragma once

#include "Platform/Updater.h"

namespace ambrel::simulated {

/// A service that a test plays.
class SimulatedUpdater final : public Updater {
public:
    void start() override {
        ++starts;
        setAvailable(isThere);
    }
    [[nodiscard]] bool isAvailable() const override { return available_; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return checks; }
    void setAutomaticallyChecksForUpdates(bool value) override { checks = value; }
    void checkForUpdates() override { ++userChecks; }

    /// The service comes or goes.
    void setAvailable(bool available) {
        if (available_ != available) {
            available_ = available;
            availabilityDidChange.emit(available);
        }
    }

    bool isThere = true; ///< when it is looked for
    bool checks = true;
    int starts = 0;
    int userChecks = 0;

private:
    bool available_ = false;
};

} // namespace ambrel::simulated
