#include "Core/Logger.h"
#include "Platform/Platform.h"
#include "Platform/UserDefaults.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"
#include "State/SeededApplications.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include <fmt/format.h>

namespace ambrel {

namespace {

constexpr Logger rulesLog("rules");

constexpr auto migratedKey = "rulesMigratedFromExcludeList";
constexpr auto excludeListKey = "userExcludedBundleIDs";
constexpr auto seedsAppliedKey = "protectionSeedsApplied";
constexpr auto idleResetKey = "idleBehaviorResetForSafetyV1";

std::string withoutExtension(std::string name) {
    constexpr std::string_view extension = ".app";
    for (auto at = name.find(extension); at != std::string::npos; at = name.find(extension, at)) {
        name.erase(at, extension.size());
    }
    return name;
}

/// A rule that keeps an application out of Quit All and from being quit by a closed window.
AppRule protectiveRule(std::string_view bundleIdentifier, const Workspace& workspace) {
    std::string identifier(bundleIdentifier);
    auto name = AppRulesStore::displayName(identifier, workspace);
    AppRule rule(std::move(identifier), std::move(name));
    rule.quitOnLastWindowClose = false;
    rule.includedInQuitAll = false;
    return rule;
}

AppRule systemDefaultRule(std::string_view bundleIdentifier, const Workspace& workspace) {
    auto rule = protectiveRule(bundleIdentifier, workspace);
    rule.systemDefault = true;
    return rule;
}

} // namespace

std::string AppRulesStore::displayName(const std::string& bundleIdentifier, const Workspace& workspace) {
    const auto installed = workspace.installedApplication(bundleIdentifier);
    return installed ? withoutExtension(installed->displayName) : bundleIdentifier;
}

std::vector<AppRule> AppRulesStore::systemDefaultRules(const Workspace& workspace) {
    std::vector<AppRule> rules;
    for (const auto identifier : systemDefaultBundleIDs) {
        rules.push_back(systemDefaultRule(identifier, workspace));
    }
    return rules;
}

// Each step that happens once saves its rules before it says so in the defaults: a crash in between then repeats the
// step rather than lose it.
void AppRulesStore::prepare() {
    seedSystemDefaults();
    migrateFromExcludeListIfNeeded();
    seedProtectionDefaults();
    normalizeDefaultRule();
    resetAllIdleBehaviorOnceForSafety();
}

void AppRulesStore::seedSystemDefaults() {
    for (const auto identifier : systemDefaultBundleIDs) {
        if (!hasRule(identifier)) {
            rules_.push_back(systemDefaultRule(identifier, platform_->workspace()));
        }
    }
    save();
}

void AppRulesStore::migrateFromExcludeListIfNeeded() {
    const auto defaults = platform_->userDefaults().productSuite();
    if (defaults->boolForKey(migratedKey)) {
        return;
    }
    std::vector<std::string> migrated;
    for (const auto& identifier : defaults->stringArrayForKey(excludeListKey)) {
        if (!hasRule(identifier)) {
            rules_.push_back(protectiveRule(identifier, platform_->workspace()));
            migrated.push_back(identifier);
        }
    }
    save();
    defaults->set(migratedKey, true);
    rulesLog.notice("Migrated {} excluded apps to per-app rules: {}", migrated.size(), fmt::join(migrated, ", "));
}

void AppRulesStore::seedProtectionDefaults() {
    const auto defaults = platform_->userDefaults().productSuite();
    const auto stored = defaults->stringArrayForKey(seedsAppliedKey);
    std::set<std::string> applied(stored.begin(), stored.end());
    const auto known = applied.size();
    auto added = seed(protectedNeverAutoQuitIDs, false, applied);
    std::ranges::move(seed(protectedQuitAllExemptIDs, true, applied), std::back_inserter(added));
    if (!added.empty()) {
        save();
    }
    if (applied.size() != known) {
        defaults->set(seedsAppliedKey, std::vector(applied.begin(), applied.end()));
    }
    if (!added.empty()) {
        rulesLog.notice("seeded protection defaults for {} installed app(s): {}", added.size(), fmt::join(added, ", "));
    }
}

std::vector<std::string> AppRulesStore::seed(std::span<const std::string_view> identifiers, bool quitOnLastWindowClose,
                                             std::set<std::string>& applied) {
    std::vector<std::string> added;
    for (const auto listed : identifiers) {
        const std::string identifier(listed);
        if (applied.contains(identifier)) {
            continue;
        }
        if (hasRule(identifier)) {
            applied.insert(identifier);
        } else if (platform_->workspace().installedApplication(identifier)) {
            rules_.push_back(protectiveRule(identifier, platform_->workspace()));
            rules_.back().quitOnLastWindowClose = quitOnLastWindowClose;
            applied.insert(identifier);
            added.push_back(identifier);
        }
    }
    return added;
}

void AppRulesStore::normalizeDefaultRule() {
    if (defaultRule_.idleBehavior == AppRule::IdleBehavior::none) {
        return;
    }
    rulesLog.notice("healed default rule: idleBehavior {} -> none (idle is per-app only)",
                    rawValue(defaultRule_.idleBehavior));
    defaultRule_.idleBehavior = AppRule::IdleBehavior::none;
    save();
}

void AppRulesStore::resetAllIdleBehaviorOnceForSafety() {
    const auto defaults = platform_->userDefaults().productSuite();
    if (defaults->boolForKey(idleResetKey)) {
        return;
    }
    std::vector<std::string> reset;
    for (auto& rule : rules_) {
        if (rule.idleBehavior != AppRule::IdleBehavior::none) {
            reset.push_back(fmt::format("{}={}", rule.bundleIdentifier(), rawValue(rule.idleBehavior)));
            rule.idleBehavior = AppRule::IdleBehavior::none;
        }
    }
    defaultRule_.idleBehavior = AppRule::IdleBehavior::none;
    if (!reset.empty()) {
        save();
    }
    defaults->set(idleResetKey, true);
    if (reset.empty()) {
        rulesLog.notice("safety idle reset: no idle rules to clear (all already none)");
        return;
    }
    rulesLog.notice("safety idle reset: forced {} rule(s) idle->none (re-opt-in required): {}", reset.size(),
                    fmt::join(reset, ", "));
}

} // namespace ambrel
