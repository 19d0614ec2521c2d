#include "Platform/Linux/LinuxOccupations.h"

namespace ambrel {

void LinuxOccupations::ask(const RunningApplication& /*app*/, std::function<void(std::optional<Occupation>)> answer) {
    queue_.async([answer = std::move(answer)] { answer(std::nullopt); });
}

} // namespace ambrel
