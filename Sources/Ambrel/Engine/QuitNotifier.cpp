#include "Engine/QuitNotifier.h"

namespace ambrel {

QuitNotifier& QuitNotifier::shared() {
    static auto& notifier = *new QuitNotifier;
    return notifier;
}

void QuitNotifier::configure() {
    if (!configured_) {
        configured_ = true;
        log_.notice("notifications of quits are not there yet");
    }
}

void QuitNotifier::notifyQuit(const std::string& /*appName*/, const std::optional<std::filesystem::path>& /*bundleURL*/,
                              ProcessId /*pid*/, TerminationAudit::Path /*path*/) {
    configure();
}

} // namespace ambrel
