#include "Platform/Linux/ProcessEnvironment.h"

#include <cstdlib>

namespace ambrel {

std::optional<std::string> ProcessEnvironment::value(const std::string& name) const {
    const char* const text = std::getenv(name.c_str());
    return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

} // namespace ambrel
