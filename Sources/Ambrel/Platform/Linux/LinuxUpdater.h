#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Platform/Linux/PackageQuestion.h"
#include "Platform/Updater.h"
#include "Platform/UserDefaults.h"

#include <memory>
#include <string>

namespace ambrel {

class Clock;
class LinkOpener;

/// Updates as packages: PackageKit is asked once a day, off the main thread, and the desktop's software centre shows
/// and installs what there is.
class LinuxUpdater final : public Updater {
public:
    struct Neighbours {
        MainQueue& queue;
        UserDefaults& defaults;
        const Clock& clock; ///< dates the questions
        LinkOpener& links;
    };

    explicit LinuxUpdater(Neighbours neighbours) : neighbours_(neighbours) {}

    void start() override;
    [[nodiscard]] bool isAvailable() const override { return available_; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool checks) override;
    void checkForUpdates() override;

private:
    [[nodiscard]] DefaultsSuite& suite() const;
    void found(bool available);
    void scheduleQuestion();
    void ask();
    void answered(const PackageQuestion::Answer& answer);

    Neighbours neighbours_;
    mutable DefaultsSuiteRef suite_;
    bool available_ = false;
    bool saidThatNoCentreIsThere_ = false;
    std::unique_ptr<AsyncBus> search_;
    Subscription searchLost_;
    std::unique_ptr<PackageQuestion> question_;
    WorkItemRef nextQuestion_;
    Logger log_{"update"};
    Lifetime lifetime_;
};

} // namespace ambrel
