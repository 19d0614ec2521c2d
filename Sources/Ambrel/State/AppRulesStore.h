#pragma once

#include "Core/Signal.h"
#include "State/AppRule.h"

#include <filesystem>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

class Clock;
class Platform;
class Workspace;

/// Owns the rules and the default rule, and writes `rules.json` after every change. A file that it can't read is
/// moved aside; if that fails too, nothing is written for the rest of the run. Main thread only.
class AppRulesStore {
public:
    [[nodiscard]] static AppRulesStore& shared();

    /// Loads the rules, then seeds and migrates them. `clock` names the file of unreadable rules.
    AppRulesStore(Platform& platform, const Clock& clock);
    /// A store for pictures: it holds what it is given and keeps nothing.
    AppRulesStore(std::vector<AppRule> previewRules, AppRule defaultRule);

    [[nodiscard]] const std::vector<AppRule>& rules() const { return rules_; }
    [[nodiscard]] const AppRule& defaultRule() const { return defaultRule_; }
    [[nodiscard]] const std::filesystem::path& fileURL() const { return fileURL_; }

    /// The first rule of that very application.
    [[nodiscard]] std::optional<AppRule> explicitRule(const std::string& bundleIdentifier) const;
    /// The rule that applies to the application: its own, or one made from the default rule.
    [[nodiscard]] AppRule rule(const std::string& bundleIdentifier) const;

    /// Replaces the first rule of the same bundle identifier in place, or appends.
    void upsert(AppRule rule);
    /// Idle behaviour and quit-when-hidden are per application only, and dropped here.
    void setDefaultRule(AppRule rule);
    /// Rules of the system stay.
    void remove(const Uuid& id);

    /// The locked rules of the system's components and of Ambrel itself, built afresh with the names that the
    /// applications have in `workspace`.
    [[nodiscard]] static std::vector<AppRule> systemDefaultRules(const Workspace& workspace);
    /// The name that a new rule of this application has; its identifier where it isn't installed.
    [[nodiscard]] static std::string displayName(const std::string& bundleIdentifier, const Workspace& workspace);

    /// Announces each change before it is made.
    Signal<> willChange;

private:
    // Loading and saving: AppRulesStore.cpp
    void load();
    void preserveCorruptRulesFile();
    void save();
    // Seeds and migrations: AppRulesStore+Seeding.cpp
    void prepare();
    void seedSystemDefaults();
    void migrateFromExcludeListIfNeeded();
    void seedProtectionDefaults();
    /// Extends `applied` by all that is dealt with, and returns what rules were made for.
    std::vector<std::string> seed(std::span<const std::string_view> identifiers, bool quitOnLastWindowClose,
                                  std::set<std::string>& applied);
    void normalizeDefaultRule();
    void resetAllIdleBehaviorOnceForSafety();
    [[nodiscard]] bool hasRule(std::string_view bundleIdentifier) const;

    Platform* platform_ = nullptr;
    const Clock* clock_ = nullptr;
    std::vector<AppRule> rules_;
    AppRule defaultRule_ = AppRule::initialDefaultRule();
    std::filesystem::path fileURL_;
    bool saveSuppressedByCorruptFile_ = false;
};

} // namespace ambrel
