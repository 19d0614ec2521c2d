#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Engine/TerminationAudit.h"
#include "Platform/NotificationCenter.h"

#include <filesystem>
#include <optional>
#include <string>

namespace ambrel {

class AppSettings;
class Platform;

/// Tells the user that an application was quit, once it is really gone, and offers to reopen it.
class QuitNotifier {
public:
    [[nodiscard]] static QuitNotifier& shared();

    QuitNotifier(Platform& platform, const AppSettings& settings) : platform_(platform), settings_(settings) {}

    /// Idempotent. Does nothing for a bare binary.
    void configure();
    /// To be called right after the request to quit. `bundleURL` is what Reopen opens.
    void notifyQuit(const std::string& appName, const std::optional<std::filesystem::path>& bundleURL, ProcessId pid,
                    TerminationAudit::Path path);

private:
    struct Quit {
        std::string appName;
        std::optional<std::filesystem::path> bundleURL;
        ProcessId pid;
        TerminationAudit::Path path;
    };

    [[nodiscard]] bool isBundled() const;
    void post(const Quit& quit);
    void didReceive(const NotificationResponse& response);

    Platform& platform_;
    const AppSettings& settings_;
    Logger log_{"notify"};
    bool configured_ = false;
    Lifetime lifetime_;
};

} // namespace ambrel
