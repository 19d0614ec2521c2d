#pragma once

#include "Platform/Environment.h"

namespace ambrel {

/// The environment of this process.
class ProcessEnvironment final : public Environment {
public:
    [[nodiscard]] std::optional<std::string> value(const std::string& name) const override;
};

} // namespace ambrel
