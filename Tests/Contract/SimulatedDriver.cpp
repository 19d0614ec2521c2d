#include "Contract/DesktopDriver.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/TemporaryFolder.h"

#include <thread>

namespace ambrel {

namespace {

class SimulatedSample final : public SampleApplication {
public:
    explicit SimulatedSample(simulated::SimulatedApplication& app) : app_(app) { app_.openWindow(); }
    ~SimulatedSample() override { app_.crash(); }

    [[nodiscard]] ProcessId pid() const override { return app_.processIdentifier(); }
    int openWindow() override { return app_.openWindow(); }
    int openDialog() override { return app_.openDialog(); }
    void close(int window) override { app_.closeWindow(window); }
    void minimise(int window) override { app_.minimise(window); }
    void restore(int window) override { app_.restore(window); }
    void withdraw(int window) override { app_.withdraw(window); }
    void map(int window) override { app_.map(window); }
    void show() override { app_.show(); }
    void refuseToQuit() override { app_.terminateAnswer = simulated::Refuses{}; }
    void crash() override { app_.crash(); }

private:
    simulated::SimulatedApplication& app_;
};

class SimulatedDriver final : public DesktopDriver {
public:
    SimulatedDriver() {
        for (const auto& identity : {editor, player}) {
            desktop_.workspace().install(identity.bundleIdentifier, identity.name);
        }
        desktop_.notificationCenter().failure = "nobody shows notifications";
    }

    [[nodiscard]] Platform& platform() override { return desktop_; }

    [[nodiscard]] std::unique_ptr<SampleApplication> launch(const std::optional<SampleIdentity>& identity) override {
        if (!identity) {
            return std::make_unique<SimulatedSample>(
                desktop_.launch(std::nullopt, "sample", {.policy = ActivationPolicy::accessory}));
        }
        return std::make_unique<SimulatedSample>(desktop_.launch(identity->bundleIdentifier, identity->name));
    }

    [[nodiscard]] bool waitUntil(const std::function<bool()>& holds) override {
        // Other threads live in real time: what they submit may come after the simulated wait is over.
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        bool held = desktop_.mainQueue().advanceUntil(holds, Seconds(10));
        while (!held && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
            held = desktop_.mainQueue().advanceUntil(holds, Seconds(0));
        }
        return held;
    }
    void settle() override { desktop_.advance(1); }
    void setReadable(bool readable) override { desktop_.windowList().setReadable(readable); }
    void lockScreen(bool locked) override {
        auto& session = desktop_.session();
        session.facts->isScreenLocked = locked;
        (locked ? session.screenIsLocked : session.screenIsUnlocked).emit();
    }
    void darkenDisplays(bool dark) override {
        (dark ? desktop_.session().screensDidSleep : desktop_.session().screensDidWake).emit();
    }
    void pressHotKey() override { desktop_.hotKeyCenter().press({12, 0xB00}); }
    void startNotifications() override { desktop_.notificationCenter().failure.reset(); }
    void useNotification(const std::string& action) override {
        auto& center = desktop_.notificationCenter();
        center.respond(center.shown.back(), action);
    }
    void setEnvironment(const std::string& name, const std::optional<std::string>& value) override {
        if (value) {
            desktop_.environment().set(name, *value);
        } else {
            desktop_.environment().unset(name);
        }
    }

private:
    TemporaryFolder home_;
    simulated::SimulatedPlatform desktop_{home_.path()};
};

} // namespace

std::unique_ptr<DesktopDriver> makeDesktopDriver() {
    return std::make_unique<SimulatedDriver>();
}

} // namespace ambrel
