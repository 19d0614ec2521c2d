#include "AppDelegate.h"
#include "Capture/PictureModule.h"
#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Engine/TerminationAudit.h"
#include "Platform/Linux/JournalSink.h"
#include "Platform/Linux/LinuxApplicationHost.h"
#include "Platform/Linux/LinuxBundle.h"
#include "Platform/Linux/LinuxPlatform.h"
#include "Platform/Linux/ProcessEnvironment.h"
#include "Platform/Linux/X11Connection.h"
#include "TaskBarEntry.h"
#include "ToolkitApplication.h"
#include "UI/Windows.h"

#include <cstdlib>
#include <utility>

#include <QGuiApplication>

namespace ambrel {
namespace {

/// The event loop runs.
bool isRunning = false;

/// The toolkit has a connection of its own, and calls exit() when it is the first to notice that the server has gone.
void endedByToolkit() {
    if (isRunning) {
        LinuxPlatform::logLostServer();
        TerminationAudit::shared().drain();
    }
}

int run(LinuxPlatform& platform) {
    Platform::install(platform);
    platform.applicationHost().setWindowQuestion([] { return Windows::shared().hasVisibleTitledWindow(); });
    const TaskBarEntry entry(platform.applicationHost());
    AppDelegate delegate(platform, AppDelegate::Neighbours::shared());
    platform.mainQueue().async([&delegate] { delegate.applicationDidFinishLaunching(); });
    std::atexit(endedByToolkit);
    isRunning = true;
    const int status = QCoreApplication::exec();
    isRunning = false;
    // Every decision that was recorded reaches the log, whatever ended the program.
    TerminationAudit::shared().drain();
    return status;
}

} // namespace
} // namespace ambrel

int main(int argc, char* argv[]) {
    ambrel::JournalSink journal;
    ambrel::LogSink::install(&journal);
    const ambrel::ProcessEnvironment environment;
    const auto windows = ambrel::LinuxBundle::ofThisProcess().bundleURL() / "libAmbrelWindows.so";
    if (const auto status = ambrel::PictureModule::runIfRequested(environment, windows, argc, argv)) {
        return *status;
    }
    // Before the toolkit looks for the server, which without one ends the process in its own words.
    auto opened = ambrel::LinuxPlatform::connect();
    if (const auto* failure = std::get_if<ambrel::FileFailure>(&opened)) {
        ambrel::Logger("lifecycle").error("there is no desktop to watch: {}", failure->description);
        return EXIT_FAILURE;
    }
    const auto application = ambrel::makeApplication(argc, argv);
    ambrel::translateApplication(ambrel::LinuxBundle::ofThisProcess().bundleURL());
    ambrel::LinuxPlatform platform(std::move(std::get<std::unique_ptr<ambrel::X11Connection>>(opened)));
    return ambrel::run(platform);
}
