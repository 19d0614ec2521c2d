#include "Platform/Linux/LinuxUpdater.h"

#include "Core/Clock.h"
#include "Platform/Linux/LinkOpener.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

constexpr auto package = "ambrel";
constexpr auto service = "org.freedesktop.PackageKit";
constexpr auto ourPage = "appstream:app.ambrel.Ambrel";
constexpr auto suiteName = "app.ambrel.Ambrel.updates";
constexpr auto checksKey = "automaticallyChecksForUpdates";
constexpr auto lastKey = "lastQuestion";
constexpr Seconds day{24.0 * 60 * 60};
/// A login is busy enough.
constexpr Seconds earliest{120};

AsyncBus::Call busCall(const char* method, std::optional<std::string> argument = {}) {
    return {.service = "org.freedesktop.DBus",
            .path = "/org/freedesktop/DBus",
            .interface = "org.freedesktop.DBus",
            .method = method,
            .argument = std::move(argument)};
}

bool listNames(sd_bus_message* message, const std::string& name) {
    bool isListed = false;
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s") > 0) {
        for (auto each = readText(message); each && !isListed; each = readText(message)) {
            isListed = *each == name;
        }
    }
    return isListed;
}

} // namespace

void LinuxUpdater::start() {
    search_ = AsyncBus::open(AsyncBus::Kind::system);
    if (!search_) {
        found(false);
        return;
    }
    searchLost_ = search_->lost.subscribe([this] { found(false); });
    search_->call(busCall("NameHasOwner", service), [this](sd_bus_message* reply) {
        if (readBoolean(reply).value_or(false)) {
            found(true);
            return;
        }
        search_->call(busCall("ListActivatableNames"),
                      [this](sd_bus_message* names) { found(listNames(names, service)); });
    });
}

void LinuxUpdater::found(bool available) {
    // Not here: a bus must not go while it delivers.
    neighbours_.queue.async(lifetime_.guard([this, available] {
        searchLost_ = {};
        search_.reset();
        if (!available) {
            log_.notice("no package service is there to be asked for updates");
            return;
        }
        available_ = true;
        availabilityDidChange.emit(true);
        scheduleQuestion();
    }));
}

DefaultsSuite& LinuxUpdater::suite() const {
    if (!suite_) {
        const auto own = neighbours_.defaults.suite(suiteName);
        suite_ = own ? own : neighbours_.defaults.standard();
        suite_->registerDefaults({{checksKey, true}});
    }
    return *suite_;
}

bool LinuxUpdater::automaticallyChecksForUpdates() const {
    return suite().boolForKey(checksKey);
}

void LinuxUpdater::setAutomaticallyChecksForUpdates(bool checks) {
    suite().set(checksKey, checks);
    scheduleQuestion();
}

void LinuxUpdater::scheduleQuestion() {
    if (const auto next = std::exchange(nextQuestion_, nullptr)) {
        next->cancel();
    }
    if (!available_ || question_ || !automaticallyChecksForUpdates()) {
        return;
    }
    const auto since = neighbours_.clock.now().time_since_epoch() - Seconds(suite().doubleForKey(lastKey));
    // A question in the future is that of a clock which was wrong.
    const auto wait = since < Seconds(0) ? Seconds(0) : day - since;
    nextQuestion_ = neighbours_.queue.asyncAfter(std::max(wait, earliest), lifetime_.guard([this] { ask(); }));
}

void LinuxUpdater::ask() {
    suite().set(lastKey, neighbours_.clock.now().time_since_epoch().count());
    question_ = std::make_unique<PackageQuestion>(neighbours_.queue, package,
                                                  [this](const PackageQuestion::Answer& answer) { answered(answer); });
}

void LinuxUpdater::answered(const PackageQuestion::Answer& answer) {
    question_.reset();
    scheduleQuestion();
    if (answer.failure) {
        log_.notice("the package service could not be asked for updates: {}", *answer.failure);
    } else if (answer.offered) {
        log_.notice("version {} is offered", *answer.offered);
        updateOffered.emit(*answer.offered);
    }
}

void LinuxUpdater::checkForUpdates() {
    if (!neighbours_.links.openSoftwareCentre(ourPage) && !std::exchange(saidThatNoCentreIsThere_, true)) {
        log_.notice("no software centre is there to show updates in");
    }
}

} // namespace ambrel
