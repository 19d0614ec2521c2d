#include "Platform/Linux/LinuxSession.h"

namespace ambrel {

void LinuxSession::start() {}

std::optional<SessionFacts> LinuxSession::current() const {
    return std::nullopt;
}

} // namespace ambrel
