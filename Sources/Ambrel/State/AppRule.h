#pragma once

#include "Core/Uuid.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ambrel {

/// What may be done to one application.
class AppRule {
public:
    enum class IdleBehavior { none, hide, quit };
    static constexpr std::array allIdleBehaviors{IdleBehavior::none, IdleBehavior::hide, IdleBehavior::quit};

    /// An ordinary rule with a new `id`, named after its identifier.
    explicit AppRule(const std::string& bundleIdentifier);
    AppRule(std::string bundleIdentifier, std::string displayName);

    /// The default rule, as it first is and as a reset makes it.
    [[nodiscard]] static AppRule initialDefaultRule();

    /// The key of every lookup, compared exactly; fixed for the life of the rule. Empty for the default rule.
    [[nodiscard]] const std::string& bundleIdentifier() const { return bundleIdentifier_; }

    bool operator==(const AppRule&) const = default;

    Uuid id = Uuid::random();

private:
    std::string bundleIdentifier_;

public:
    std::string displayName;
    bool quitOnLastWindowClose = true;
    IdleBehavior idleBehavior = IdleBehavior::none;
    std::int64_t idleThresholdMinutes = 30;
    bool includedInQuitAll = true;
    /// Seeded for a component of the system or for Ambrel itself; can't be removed.
    bool systemDefault = false;
    bool quitWhenHidden = false;
};

/// The word that stands for a behaviour in files and log lines.
[[nodiscard]] std::string_view rawValue(AppRule::IdleBehavior behavior);

} // namespace ambrel
