#pragma once

#include "Platform/Environment.h"

#include <map>

namespace ambrel::simulated {

/// Environment variables of the simulated process; empty at first.
class SimulatedEnvironment final : public Environment {
public:
    [[nodiscard]] std::optional<std::string> value(const std::string& name) const override {
        const auto found = variables_.find(name);
        return found == variables_.end() ? std::nullopt : std::optional(found->second);
    }

    void set(const std::string& name, std::string value) { variables_[name] = std::move(value); }
    void unset(const std::string& name) { variables_.erase(name); }

private:
    std::map<std::string, std::string> variables_;
};

} // namespace ambrel::simulated
