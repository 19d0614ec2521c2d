#include "AppDelegate.h"
#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Engine/TerminationAudit.h"
#include "Platform/Linux/JournalSink.h"
#include "Platform/Linux/LinuxPlatform.h"

#include <cstdlib>

#include <QCoreApplication>

namespace ambrel {
namespace {

int run(LinuxPlatform& platform) {
    Platform::install(platform);
    AppDelegate delegate(platform, AppDelegate::Neighbours::shared());
    platform.mainQueue().async([&delegate] { delegate.applicationDidFinishLaunching(); });
    const int status = QCoreApplication::exec();
    // Every decision that was recorded reaches the log, whatever ended the program.
    TerminationAudit::shared().drain();
    return status;
}

} // namespace
} // namespace ambrel

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    ambrel::JournalSink journal;
    ambrel::LogSink::install(&journal);
    auto created = ambrel::LinuxPlatform::create();
    if (const auto* failure = std::get_if<ambrel::FileFailure>(&created)) {
        ambrel::Logger("lifecycle").error("there is no desktop to watch: {}", failure->description);
        return EXIT_FAILURE;
    }
    return ambrel::run(*std::get<std::unique_ptr<ambrel::LinuxPlatform>>(created));
}
