#include "Contract/DesktopDriver.h"
#include "Contract/Linux/PlayedServices.h"
#include "Core/Files.h"
#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxPlatform.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Workspace.h"
#include "Support/SampleProcess.h"
#include "Support/TextFile.h"

#include <cstdlib>
#include <iostream>

#include <QProcess>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

namespace ambrel {

namespace {

/// Longer than the platform takes to tell a withdrawn window from one that is being destroyed.
constexpr int quietMilliseconds = 500;

std::vector<std::string> sampleArguments(const std::string& windowClass) {
    return {"--class", windowClass, windowClass, "open"};
}

class LinuxSample final : public SampleApplication {
public:
    explicit LinuxSample(const std::string& windowClass) : process_(sampleArguments(windowClass)) {}

    [[nodiscard]] ProcessId pid() const override { return process_.pid(); }
    int openWindow() override { return open("open"); }
    int openDialog() override { return open("dialog"); }
    void close(int window) override { command("destroy", window); }
    void minimise(int window) override { command("minimise", window); }
    void restore(int window) override { map(window); }
    void withdraw(int window) override { command("withdraw", window); }
    void map(int window) override { command("map", window); }
    void show() override {
        for (int window = 1; window <= windows_; ++window) {
            map(window);
        }
    }
    void refuseToQuit() override {
        process_.command("ignore-term");
        process_.command("ignore-delete");
    }
    /// Not collected yet: until the end of this object nobody else gets its process id.
    void crash() override { process_.signal(SIGKILL); }

private:
    int open(const std::string& verb) {
        process_.open(verb);
        return ++windows_;
    }
    void command(const std::string& verb, int window) { process_.command(verb + " " + std::to_string(window)); }

    SampleProcess process_;
    int windows_ = 1;
};

/// The private desktop's window manager: the one it began with, then those that are started here.
class WindowManager {
public:
    void stop() {
        if (isFirstRunning_) {
            kill(std::atoi(std::getenv("AMBREL_DESKTOP_WM_PID")), SIGKILL);
            isFirstRunning_ = false;
        }
        later_.reset();
    }
    void start() {
        if (!isFirstRunning_ && !later_) {
            later_.emplace(std::vector<std::string>{"sh", "-c", "exec $AMBREL_DESKTOP_WM_COMMAND"});
        }
    }

private:
    bool isFirstRunning_ = true;
    std::optional<ChildProcess> later_;
};

std::unique_ptr<LinuxPlatform> createPlatform() {
    auto opened = LinuxPlatform::connect();
    if (const auto* failure = std::get_if<FileFailure>(&opened)) {
        std::cerr << failure->description << '\n';
        std::abort();
    }
    return std::make_unique<LinuxPlatform>(std::move(std::get<std::unique_ptr<X11Connection>>(opened)));
}

class LinuxDriver final : public DesktopDriver {
public:
    ~LinuxDriver() override {
        windowManager().start();
        darkenDisplays(false);
    }

    [[nodiscard]] Platform& platform() override { return *platform_; }
    [[nodiscard]] std::unique_ptr<SampleApplication> launch(const std::optional<SampleIdentity>& identity) override {
        return std::make_unique<LinuxSample>(identity ? identity->bundleIdentifier : "ambrel-nobody");
    }
    [[nodiscard]] bool waitUntil(const std::function<bool()>& holds) override { return runUntil(holds); }
    void settle() override {
        (void)runUntil([] { return false; }, quietMilliseconds);
    }
    void setReadable(bool readable) override { readable ? windowManager().start() : windowManager().stop(); }
    void lockScreen(bool locked) override { services_.setScreenSaver(locked); }
    void darkenDisplays(bool dark) override { QProcess::execute("xset", {"s", dark ? "activate" : "reset"}); }
    void pressHotKey() override { QProcess::execute("xdotool", {"key", "super+alt+shift+q"}); }
    void startNotifications() override { services_.startNotifications(); }
    void useNotification(const std::string& action) override {
        services_.useNotification(QString::fromStdString(action));
    }
    void setEnvironment(const std::string& name, const std::optional<std::string>& value) override {
        value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }

private:
    static WindowManager& windowManager() {
        static WindowManager manager;
        return manager;
    }

    PlayedServices services_;
    std::unique_ptr<LinuxPlatform> platform_ = createPlatform();
};

/// Desktop entries are read once per process, so they must be there before the platform is.
void install(const SampleIdentity& identity) {
    const std::string id = identity.bundleIdentifier;
    writeText(std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "applications" / (id + ".desktop"),
              fmt::format("[Desktop Entry]\nType=Application\nName={}\nStartupWMClass={}\nExec={}\n", identity.name, id,
                          fmt::join(SampleProcess::commandLine(sampleArguments(id)), " ")));
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
