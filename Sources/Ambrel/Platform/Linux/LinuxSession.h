#pragma once

#include "Platform/Session.h"

namespace ambrel {

/// The session as logind, the screen savers of the session bus and the X server tell it.
class LinuxSession final : public Session {
public:
    void start() override;
    [[nodiscard]] std::optional<SessionFacts> current() const override;
};

} // namespace ambrel
