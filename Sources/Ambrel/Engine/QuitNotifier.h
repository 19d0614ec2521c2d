#pragma once

#include "Core/Logger.h"
#include "Engine/TerminationAudit.h"

#include <filesystem>
#include <optional>
#include <string>

namespace ambrel {

/// Tells the user that an application was quit, once it is really gone, and offers to reopen it.
class QuitNotifier {
public:
    [[nodiscard]] static QuitNotifier& shared();

    /// Idempotent.
    void configure();
    void notifyQuit(const std::string& appName, const std::optional<std::filesystem::path>& bundleURL, ProcessId pid,
                    TerminationAudit::Path path);

private:
    Logger log_{"notify"};
    bool configured_ = false;
};

} // namespace ambrel
