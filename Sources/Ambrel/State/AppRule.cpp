#include "State/AppRule.h"

#include <utility>

namespace ambrel {

AppRule::AppRule(const std::string& bundleIdentifier) : AppRule(bundleIdentifier, bundleIdentifier) {}

AppRule::AppRule(std::string bundleIdentifier, std::string name)
    : bundleIdentifier_(std::move(bundleIdentifier)), displayName(std::move(name)) {}

AppRule AppRule::initialDefaultRule() {
    return {"", "Default rule"};
}

std::string_view rawValue(AppRule::IdleBehavior behavior) {
    switch (behavior) {
    case AppRule::IdleBehavior::none:
        return "none";
    case AppRule::IdleBehavior::hide:
        return "hide";
    case AppRule::IdleBehavior::quit:
        return "quit";
    }
    return {};
}

} // namespace ambrel
