#pragma once

#include "Platform/Session.h"

namespace ambrel::simulated {

/// A session that is what a test says it is.
class SimulatedSession final : public Session {
public:
    void start() override { started = true; }
    [[nodiscard]] std::optional<SessionFacts> current() const override { return facts; }

    /// What the seed is read from; absent when nothing can be read.
    std::optional<SessionFacts> facts = SessionFacts{.isScreenLocked = false, .isOnConsole = true};
    bool started = false;
};

} // namespace ambrel::simulated
