#include "State/AppRulesStore.h"

#include "Core/Clock.h"
#include "Core/Files.h"
#include "Core/Logger.h"
#include "Platform/AppClock.h"
#include "Platform/FileLocations.h"
#include "Platform/Platform.h"
#include "State/AppRuleCoding.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace ambrel {

namespace {

constexpr Logger rulesLog("rules");
constexpr std::size_t largestReadableFile = std::size_t{16} << 20U;

template <typename Rules> auto find(Rules& rules, std::string_view bundleIdentifier) {
    return std::find_if(rules.begin(), rules.end(),
                        [&](const AppRule& rule) { return rule.bundleIdentifier() == bundleIdentifier; });
}

} // namespace

AppRulesStore& AppRulesStore::shared() {
    static AppRulesStore store(Platform::shared(), AppClock::shared());
    return store;
}

AppRulesStore::AppRulesStore(Platform& platform, const Clock& clock) : platform_(&platform), clock_(&clock) {
    const auto folder = platform.fileLocations().applicationSupport() / "Ambrel";
    // A folder that can't be made shows up as a failed save.
    static_cast<void>(createFolder(folder));
    fileURL_ = folder / "rules.json";
    load();
    prepare();
}

AppRulesStore::AppRulesStore(std::vector<AppRule> previewRules, AppRule defaultRule)
    : rules_(std::move(previewRules)), defaultRule_(std::move(defaultRule)), fileURL_("/dev/null") {}

std::optional<AppRule> AppRulesStore::explicitRule(const std::string& bundleIdentifier) const {
    const auto found = find(rules_, bundleIdentifier);
    return found == rules_.end() ? std::nullopt : std::optional(*found);
}

AppRule AppRulesStore::rule(const std::string& bundleIdentifier) const {
    if (auto own = explicitRule(bundleIdentifier)) {
        return *std::move(own);
    }
    AppRule made(bundleIdentifier, defaultRule_.displayName);
    made.quitOnLastWindowClose = defaultRule_.quitOnLastWindowClose;
    made.idleBehavior = defaultRule_.idleBehavior;
    made.idleThresholdMinutes = defaultRule_.idleThresholdMinutes;
    made.includedInQuitAll = defaultRule_.includedInQuitAll;
    return made;
}

bool AppRulesStore::hasRule(std::string_view bundleIdentifier) const {
    return find(rules_, bundleIdentifier) != rules_.end();
}

void AppRulesStore::upsert(AppRule rule) {
    willChange.emit();
    const auto found = find(rules_, rule.bundleIdentifier());
    if (found != rules_.end()) {
        *found = std::move(rule);
    } else {
        rules_.push_back(std::move(rule));
    }
    save();
}

void AppRulesStore::setDefaultRule(AppRule rule) {
    rule.idleBehavior = AppRule::IdleBehavior::none;
    rule.quitWhenHidden = false;
    willChange.emit();
    defaultRule_ = std::move(rule);
    save();
}

void AppRulesStore::remove(const Uuid& id) {
    // The caller's id may live in the very rule that goes.
    willChange.emit();
    std::erase_if(rules_, [id](const AppRule& rule) { return rule.id == id && !rule.systemDefault; });
    save();
}

void AppRulesStore::load() {
    const auto content = readFile(fileURL_, largestReadableFile);
    if (const auto* const failed = std::get_if<FileFailure>(&content)) {
        if (failed->code != ENOENT && failed->code != ENOTDIR) {
            preserveCorruptRulesFile();
        }
        return;
    }
    auto persisted = decodePersisted(std::get<std::string>(content));
    if (!persisted) {
        preserveCorruptRulesFile();
        return;
    }
    rules_ = std::move(persisted->rules);
    defaultRule_ = std::move(persisted->defaultRule);
    // What hides is quit by its own rule only, whatever the file says of all others.
    defaultRule_.quitWhenHidden = false;
}

void AppRulesStore::preserveCorruptRulesFile() {
    auto preserved = fileURL_;
    preserved += ".corrupt-" + std::to_string(wholeSeconds(clock_->now()));
    const auto failed = moveFile(fileURL_, preserved);
    saveSuppressedByCorruptFile_ = failed.has_value();
    if (failed) {
        rulesLog.error("rules.json failed to decode AND could not be moved aside ({}) — suppressing saves to avoid "
                       "overwriting it",
                       failed->description);
    } else {
        rulesLog.error("rules.json failed to decode — preserved as {}; starting with fresh rules",
                       preserved.filename().string());
    }
}

void AppRulesStore::save() {
    if (saveSuppressedByCorruptFile_ || platform_ == nullptr) {
        return;
    }
    if (const auto failed = replaceFile(fileURL_, encode({rules_, defaultRule_}))) {
        rulesLog.error("rules.json save failed: {}", failed->description);
    }
}

} // namespace ambrel
