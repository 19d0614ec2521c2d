#pragma once

#include "Support/ChildProcess.h"

#include <optional>

namespace ambrel {

/// The private desktop's window manager: the one it began with, then those that are started here.
class LinuxWindowManager {
public:
    void stop();
    void start();

private:
    bool isFirstRunning_ = true;
    std::optional<ChildProcess> later_;
};

} // namespace ambrel
