#include "Walk/Day.h"

#include <fmt/format.h>

namespace ambrel::walk {

namespace {

constexpr std::size_t mostApplications = 8;

const simulated::SimulatedWindow* at(const App& app, long place) {
    return app.windows().empty() ? nullptr : &app.windows()[static_cast<std::size_t>(place)];
}

} // namespace

App* Day::anApp() {
    const auto& apps = desktop_.workspace().applications();
    if (apps.empty()) {
        return nullptr;
    }
    auto* const app = apps[static_cast<std::size_t>(upTo(static_cast<long>(apps.size())))].get();
    trail_.back() += fmt::format(": {} (pid {}, {} windows)", app->bundleIdentifier().value_or("?"),
                                 app->processIdentifier(), app->windows().size());
    if (app->isFrozen() && once(3)) {
        app->crash(); // Its user has had enough.
    }
    return app->isFrozen() ? nullptr : app;
}

std::string Day::aBundleID() {
    return oneOf<const char*>({"org.example.A", "org.example.B", "org.example.C", "org.example.D", "org.example.E",
                               "com.apple.TextEdit", "com.apple.finder", "app.ambrel.Ambrel"});
}

void Day::launch() {
    using namespace simulated;
    if (desktop_.workspace().applications().size() >= mostApplications) {
        return;
    }
    LaunchOptions options;
    options.policy = once(12) ? ActivationPolicy::accessory : ActivationPolicy::regular;
    if (!ended_.empty() && once(8) && !desktop_.workspace().find(ended_.back())) {
        options.pid = ended_.back();
    }
    const auto bundleID = once(15) ? std::nullopt : std::optional(aBundleID());
    auto& app = desktop_.launch(bundleID, bundleID.value_or("Nameless"), options);
    trail_.back() += fmt::format(": {} (pid {})", bundleID.value_or("?"), app.processIdentifier());
    app.terminateAnswer = oneOf<TerminateAnswer>(
        {Quits{}, Quits{}, Quits{}, Quits{Seconds(1.5)}, Quits{Seconds(7)}, Refuses{}, ShowsSaveDialog{}, Freezes{}});
    app.hasTrayItem = once(6);
    if (!once(4)) {
        app.openWindow();
    }
}

void Day::openWindow() {
    if (auto* const app = anApp()) {
        simulated::SimulatedWindow window;
        window.minimised = once(12);
        window.onOtherDesktop = once(12);
        window.withdrawn = once(20);
        window.unreadable.subrole = once(30);
        window.unreadable.role = once(30);
        window.alpha = once(20) ? 0.01 : 1;
        window.frame.width = once(20) ? 20 : 800;
        app->openWindow(window);
    }
}

void Day::openDialog() {
    if (auto* const app = anApp()) {
        app->openDialog();
    }
}

void Day::closeWindow() {
    auto* const app = anApp();
    if (const auto* window = app ? at(*app, upTo(std::max<long>(1, std::ssize(app->windows())))) : nullptr) {
        app->closeWindow(window->id);
    }
}

void Day::closeAllWindows() {
    if (auto* const app = anApp()) {
        app->closeWindows();
    }
}

void Day::moveWindow() {
    auto* const app = anApp();
    const auto* window = app ? at(*app, upTo(std::max<long>(1, std::ssize(app->windows())))) : nullptr;
    if (window == nullptr) {
        return;
    }
    const auto move =
        oneOf({&App::minimise, &App::restore, &App::restore, &App::withdraw, &App::map, &App::map, &App::focusWindow});
    (app->*move)(window->id);
}

void Day::hideOrShow() {
    if (auto* const app = anApp()) {
        app->isHidden() || once(8) ? app->show() : app->hideItself();
        app->hasTrayItem = once(6);
    }
}

void Day::useApp() {
    if (auto* const app = anApp()) {
        app->activate();
    }
}

void Day::endApp() {
    if (auto* const app = anApp()) {
        ended_.push_back(app->processIdentifier());
        once(2) ? app->crash() : app->quit();
    }
}

void Day::breakAccessibility() {
    auto* const app = anApp();
    if (app == nullptr) {
        return;
    }
    auto& faults = app->accessibility;
    const bool broken = faults.failingReads > 0 || !faults.addNotification.empty();
    faults.clear();
    if (broken) {
        return;
    }
    switch (upTo(3)) {
    case 0:
        faults.addNotification["AXWindowCreated"] = AXError::failure;
        break;
    default:
        faults.failReads(oneOf({AXError::failure, AXError::noValue, AXError::cannotComplete}));
    }
}

} // namespace ambrel::walk
