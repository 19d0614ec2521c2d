#include "Contract/Linux/LinuxSample.h"
#include "Contract/Linux/LinuxWindowManager.h"
#include "Contract/Linux/PlayedServices.h"
#include "Core/Files.h"
#include "Platform/Linux/LinuxPlatform.h"
#include "Platform/Workspace.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QTimer>
#include <gtest/gtest.h>

namespace ambrel {

namespace {

constexpr int waitMilliseconds = 10000;
/// Longer than the platform takes to tell a withdrawn window from one that is being destroyed.
constexpr int quietMilliseconds = 500;
/// What the desktop shows can change without an event for the platform.
constexpr int lookAgainMilliseconds = 10;

std::unique_ptr<LinuxPlatform> createPlatform() {
    auto created = LinuxPlatform::create();
    if (const auto* failure = std::get_if<FileFailure>(&created)) {
        std::cerr << failure->description << '\n';
        std::abort();
    }
    return std::move(std::get<std::unique_ptr<LinuxPlatform>>(created));
}

/// Runs Qt's event loop until `holds` answers true or the time is over.
bool runUntil(const std::function<bool()>& holds, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    QTimer lookAgain;
    lookAgain.start(lookAgainMilliseconds);
    bool held = holds();
    while (!held && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        held = holds();
    }
    return held;
}

class LinuxDriver final : public DesktopDriver {
public:
    ~LinuxDriver() override {
        setTrusted(true);
        darkenDisplays(false);
    }

    [[nodiscard]] Platform& platform() override { return *platform_; }
    [[nodiscard]] std::unique_ptr<SampleApplication> launch(const std::optional<SampleIdentity>& identity) override {
        return std::make_unique<LinuxSample>(identity ? identity->bundleIdentifier : "ambrel-nobody");
    }
    [[nodiscard]] bool waitUntil(const std::function<bool()>& holds) override {
        return runUntil(holds, waitMilliseconds);
    }
    void settle() override {
        (void)runUntil([] { return false; }, quietMilliseconds);
    }
    void setTrusted(bool trusted) override {
        if (trusted) {
            windowManager().start();
        } else {
            windowManager().stop();
        }
    }
    void lockScreen(bool locked) override { services_.setScreenSaver(locked); }
    void darkenDisplays(bool dark) override { QProcess::execute("xset", {"s", dark ? "activate" : "reset"}); }
    void pressHotKey() override { QProcess::execute("xdotool", {"key", "super+alt+shift+q"}); }
    void startNotifications() override { services_.startNotifications(); }
    void useNotification(const std::string& action) override {
        services_.useNotification(QString::fromStdString(action));
    }
    void setEnvironment(const std::string& name, const std::optional<std::string>& value) override {
        if (value) {
            setenv(name.c_str(), value->c_str(), 1);
        } else {
            unsetenv(name.c_str());
        }
    }

private:
    static LinuxWindowManager& windowManager() {
        static LinuxWindowManager manager;
        return manager;
    }

    PlayedServices services_;
    std::unique_ptr<LinuxPlatform> platform_ = createPlatform();
};

/// Desktop entries are read once per process, so they must be there before the platform is.
void install(const SampleIdentity& identity) {
    const auto folder = std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "applications";
    std::filesystem::create_directories(folder);
    std::ofstream entry(folder / (std::string(identity.bundleIdentifier) + ".desktop"));
    entry << "[Desktop Entry]\nType=Application\nName=" << identity.name
          << "\nStartupWMClass=" << identity.bundleIdentifier << "\nExec=";
    for (const auto& argument : LinuxSample::commandLine(identity.bundleIdentifier)) {
        entry << argument << ' ';
    }
    entry << '\n';
}

/// A window manager that has only just announced itself may pass over a window that appears while it starts.
bool awaitWindowManager() {
    constexpr int attempts = 20;
    constexpr int patienceMilliseconds = 1000;
    const auto platform = createPlatform();
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const LinuxSample sample("ambrel-nobody");
        const auto isListed = [&] {
            return platform->workspace().runningApplication(sample.pid()) != nullptr;
        };
        if (runUntil(isListed, patienceMilliseconds)) {
            return true;
        }
    }
    return false;
}

} // namespace

std::unique_ptr<DesktopDriver> makeDesktopDriver() {
    static const bool ready = awaitWindowManager();
    EXPECT_TRUE(ready) << "the window manager takes no windows";
    return std::make_unique<LinuxDriver>();
}

} // namespace ambrel

int main(int argc, char** argv) {
    if (std::getenv("AMBREL_DESKTOP_WM_PID") == nullptr || std::getenv("XDG_DATA_HOME") == nullptr) {
        std::cerr << "These tests end window managers: run them through Scripts/desktop.\n";
        return 1;
    }
    for (const auto& identity : {ambrel::editor, ambrel::player}) {
        ambrel::install(identity);
    }
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
