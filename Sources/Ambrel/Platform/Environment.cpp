#include "Platform/Environment.h"

#include "Core/ParseNumber.h"

namespace ambrel {

std::optional<double> Environment::number(const std::string& name) const {
    const auto text = value(name);
    return text ? parseNumber(*text) : std::nullopt;
}

} // namespace ambrel
