#include "Walk/Day.h"

#include <fmt/format.h>

namespace ambrel::walk {

namespace {

constexpr std::size_t mostApplications = 8;

} // namespace

std::vector<Day::Verb> Day::applicationVerbs() {
    return {
        {60, "launch",
         [this] {
             launch();
         }},
        onApp(150, "open a window", [this](App& app) { app.openWindow(newWindow()); }),
        onApp(20, "open a dialog", [](App& app) { app.openDialog(); }),
        onApp(130, "close a window",
              [this](App& app) {
                  if (const auto* const window = aWindow(app)) {
                      app.closeWindow(window->id);
                  }
              }),
        onApp(50, "close all windows", [](App& app) { app.closeWindows(); }),
        onApp(60, "move a window",
              [this](App& app) {
                  if (const auto* const window = aWindow(app)) {
                      const auto move = oneOf({&App::minimise, &App::restore, &App::restore, &App::withdraw, &App::map,
                                               &App::map, &App::focusWindow});
                      (app.*move)(window->id);
                  }
              }),
        onApp(30, "hide or show",
              [this](App& app) {
                  app.isHidden() || once(8) ? app.show() : app.hideItself();
                  app.hasTrayItem = once(6);
              }),
        onApp(60, "use an application", [](App& app) { app.activate(); }),
        onApp(15, "work",
              [this](App& app) {
                  using simulated::Work;
                  desktop_.processActivity().work(app.processIdentifier(),
                                                  oneOf({Work::computes, Work::writes, Work::waitsForDisk}),
                                                  Seconds(oneOf({0.3, 1.0, 4.0, 90.0})));
              }),
        onApp(10, "play, or stop",
              [this](App& app) {
                  auto& occupied = desktop_.occupations().of;
                  if (occupied.erase(app.processIdentifier()) == 0) {
                      occupied[app.processIdentifier()] = oneOf({Occupation::playing, Occupation::inhibiting});
                  }
              }),
        onApp(20, "end an application",
              [this](App& app) {
                  ended_.push_back(app.processIdentifier());
                  once(2) ? app.crash() : app.quit();
              }),
        onApp(calm_ ? 0 : 20, "open a window that nobody can read",
              [this](App& app) {
                  app.faults.failReads(oneOf({Unreadable::failed, Unreadable::processGone}));
                  auto window = newWindow();
                  window.onOtherDesktop = window.onOtherDesktop || once(2);
                  app.openWindow(window);
              }),
        onApp(calm_ ? 0 : 10, "break or mend the reading of windows", [this](App& app) { breakReading(app.faults); }),
    };
}

Day::Verb Day::onApp(long weight, const char* name, std::function<void(App&)> act) {
    return {weight, name, [this, act = std::move(act)] {
                if (auto* const app = anApp()) {
                    act(*app);
                }
            }};
}

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
    app.terminateAnswer = oneOf<TerminateAnswer>({Quits{}, Quits{}, Quits{}, Quits{Seconds(1.5)}, Quits{Seconds(7)},
                                                  Lingers{Seconds(20)}, Refuses{}, ShowsSaveDialog{}, Freezes{}});
    app.hasTrayItem = once(6);
    app.questionTime = Seconds(once(5) ? 1.5 : 0);
    if (!once(4)) {
        app.openWindow();
    }
}

simulated::SimulatedWindow Day::newWindow() {
    simulated::SimulatedWindow window;
    window.minimised = once(12);
    window.onOtherDesktop = once(12);
    window.withdrawn = once(20);
    window.certain = !once(30);
    window.alpha = once(20) ? 0.01 : 1;
    window.frame.width = once(20) ? 20 : 800;
    return window;
}

const simulated::SimulatedWindow* Day::aWindow(const App& app) {
    const auto place = upTo(std::max<long>(1, std::ssize(app.windows())));
    return app.windows().empty() ? nullptr : &app.windows()[static_cast<std::size_t>(place)];
}

void Day::breakReading(simulated::WindowFaults& faults) {
    const bool broken = faults.failingReads > 0;
    faults.clear();
    if (!broken) {
        faults.failReads(oneOf({Unreadable::failed, Unreadable::processGone, Unreadable::noWindowManager}));
    }
}

} // namespace ambrel::walk
