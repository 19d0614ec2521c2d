#pragma once

#include "Platform/ProcessActivity.h"

namespace ambrel {

/// The work of processes as /proc tells it.
class LinuxProcessActivity final : public ProcessActivity {
public:
    [[nodiscard]] std::optional<ProcessWork> work(ProcessId pid,
                                                  const std::function<bool(ProcessId)>& isAnother) const override;
};

} // namespace ambrel
