#pragma once

#include <optional>
#include <string>

namespace ambrel {

/// The environment variables, read afresh at each question.
class Environment {
public:
    virtual ~Environment() = default;

    /// Absent when not set; set to nothing is the empty text.
    [[nodiscard]] virtual std::optional<std::string> value(const std::string& name) const = 0;

    [[nodiscard]] bool isSet(const std::string& name) const { return value(name).has_value(); }
    /// By the rule of `parseNumber`; absent when not set or not a number.
    [[nodiscard]] std::optional<double> number(const std::string& name) const;
};

} // namespace ambrel
