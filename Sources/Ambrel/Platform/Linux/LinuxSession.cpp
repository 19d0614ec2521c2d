#include "Platform/Linux/LinuxSession.h"

#include "Core/Logger.h"
#include "Platform/Linux/AsyncBus.h"
#include "Platform/Linux/LoginSession.h"
#include "Platform/Linux/ScreenSaverService.h"
#include "Platform/Linux/SessionManagers.h"

#include <utility>

namespace ambrel {

namespace {

constexpr Logger logger("systemstate");
constexpr Seconds firstAnswersLimit(1.5);

struct KnownScreenSaver {
    const char* name;
    std::vector<std::string> paths;
};

const std::vector<KnownScreenSaver>& knownScreenSavers() {
    static const auto& known = *new std::vector<KnownScreenSaver>{
        {"org.freedesktop.ScreenSaver", {"/org/freedesktop/ScreenSaver", "/ScreenSaver"}},
        {"org.gnome.ScreenSaver", {"/org/gnome/ScreenSaver"}},
        {"org.mate.ScreenSaver", {"/org/mate/ScreenSaver", "/"}},
        {"org.cinnamon.ScreenSaver", {"/org/cinnamon/ScreenSaver"}},
        {"org.xfce.ScreenSaver", {"/org/xfce/ScreenSaver", "/"}},
    };
    return known;
}

} // namespace

LinuxSession::LinuxSession(X11Connection& connection, const X11WindowMirror& mirror, MainQueue& queue)
    : displays_(connection), locker_(connection, mirror, queue) {}

LinuxSession::~LinuxSession() = default;

void LinuxSession::start() {
    systemBus_ = AsyncBus::open(AsyncBus::Kind::system);
    sessionBus_ = AsyncBus::open(AsyncBus::Kind::session);
    watchLogin();
    watchScreenSavers();
    watchSessionManagers();
    watchDisplays();
    AsyncBus::settle({systemBus_.get(), sessionBus_.get()}, firstAnswersLimit);
    reportSilence();
    watchLosses();
    isLocked_ = isLocked().value_or(false);
    isAway_ = isAway();
    settling_ = false;
}

void LinuxSession::watchLogin() {
    if (!systemBus_) {
        return;
    }
    login_ = std::make_unique<LoginSession>(*systemBus_);
    const auto name = login_->name();
    subscriptions_.push_back(login_->locked.subscribe([this, name](bool locked) { hear(name, locked); }));
    subscriptions_.push_back(login_->activeChanged.subscribe([this] { announce(); }));
    subscriptions_.push_back(
        login_->preparesForSleep.subscribe([this](bool sleeps) { (sleeps ? willSleep : didWake).emit(); }));
    subscriptions_.push_back(
        login_->preparesForShutdown.subscribe([this](bool ends) { setEnding(machineEnds_, ends); }));
    subscriptions_.push_back(login_->vanished.subscribe([this, name] { mourn(name); }));
}

void LinuxSession::watchScreenSavers() {
    if (!sessionBus_) {
        return;
    }
    for (const auto& [name, paths] : knownScreenSavers()) {
        auto& saver = *screenSavers_.emplace_back(std::make_unique<ScreenSaverService>(*sessionBus_, name, paths));
        subscriptions_.push_back(saver.active.subscribe([this, service = saver.name()](bool active) {
            heardScreenSaver_ = true;
            hear(service, active);
        }));
        subscriptions_.push_back(saver.vanished.subscribe([this, service = saver.name()] { mourn(service); }));
    }
}

void LinuxSession::watchSessionManagers() {
    if (sessionBus_) {
        managers_ = std::make_unique<SessionManagers>(*sessionBus_);
        subscriptions_.push_back(managers_->ending.subscribe([this](bool ends) { setEnding(sessionEnds_, ends); }));
    }
}

void LinuxSession::setEnding(bool& voice, bool ending) {
    voice = ending;
    announce();
}

void LinuxSession::watchDisplays() {
    displays_.start();
    locker_.start();
    subscriptions_.push_back(locker_.didChange.subscribe([this] { announce(); }));
    subscriptions_.push_back(displays_.didChange.subscribe([this] { announce(); }));
}

void LinuxSession::watchLosses() {
    const auto report = [this](const auto& bus, const char* name) {
        if (bus) {
            subscriptions_.push_back(bus->lost.subscribe([name] {
                logger.notice("connection to the {} bus lost: its services are not watched until it is back", name);
            }));
        }
    };
    report(systemBus_, "system");
    report(sessionBus_, "session");
}

void LinuxSession::reportSilence() const {
    if (!login_ || !login_->isActive()) {
        logger.notice("logind is not there or doesn't answer: the locks it knows of, session switches and sleep are "
                      "not watched until it does");
    }
    if (!heardScreenSaver_) {
        logger.notice("no screen saver service answers: the locks it would know of are not watched until one does");
    }
    if (!displays_.isWatched()) {
        logger.notice("the X server tells nothing of its displays: their sleep is not watched");
    }
}

std::optional<SessionFacts> LinuxSession::current() const {
    const SessionFacts facts{isLocked(), login_ ? login_->isActive() : std::nullopt};
    return facts.isScreenLocked || facts.isOnConsole ? std::optional(facts) : std::nullopt;
}

void LinuxSession::hear(const std::string& service, bool locked) {
    lock_.says(service, locked);
    announce();
}

void LinuxSession::mourn(const std::string& service) {
    if (lock_.dies(service)) {
        logger.notice("{} has ended while it said that the screen is locked; asking the others", service);
        if (login_) {
            login_->ask();
        }
        for (const auto& saver : screenSavers_) {
            saver->ask();
        }
    }
    announce();
}

void LinuxSession::announce() {
    if (settling_) {
        return;
    }
    struct Condition {
        bool& announced;
        bool holds;
        const Signal<>& begins;
        const Signal<>& ends;
    };
    const Condition conditions[] = {{isLocked_, isLocked().value_or(false), screenIsLocked, screenIsUnlocked},
                                    {isAway_, isAway(), sessionDidResignActive, sessionDidBecomeActive},
                                    {isEnding_, machineEnds_ || sessionEnds_, sessionWillEnd, sessionWillStay},
                                    {isAsleep_, displays_.isAsleep(), screensDidSleep, screensDidWake}};
    // Where one begins as another ends, nobody shall see a moment without any.
    for (const bool value : {true, false}) {
        for (const auto& condition : conditions) {
            if (condition.holds == value && std::exchange(condition.announced, value) != value) {
                (value ? condition.begins : condition.ends).emit();
            }
        }
    }
}

std::optional<bool> LinuxSession::isLocked() const {
    return locker_.isLocked() ? std::optional(true) : lock_.isLocked();
}

bool LinuxSession::isAway() const {
    return login_ && !login_->isActive().value_or(true);
}

} // namespace ambrel
