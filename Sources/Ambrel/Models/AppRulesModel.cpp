#include "Models/AppRulesModel.h"

#include "Core/MainQueue.h"
#include "Platform/Platform.h"
#include "State/AppRulesStore.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

bool isOrdinary(const AppRule& rule) {
    return rule.quitOnLastWindowClose && rule.idleBehavior == AppRule::IdleBehavior::none && rule.includedInQuitAll;
}

AppRulesModel::Row rowOf(const AppRule& rule) {
    return {.id = rule.bundleIdentifier(),
            .name = rule.displayName,
            .subtitle = rule.bundleIdentifier(),
            .locked = rule.systemDefault,
            .active = !isOrdinary(rule)};
}

} // namespace

AppRulesModel::AppRulesModel(Platform& platform, AppRulesStore& store) : platform_(platform), store_(store) {
    storeObserver_ = store_.willChange.subscribe([this] {
        // Announced before the change is made.
        platform_.mainQueue().async(lifetime_.guard([this] { didChange.emit(); }));
    });
}

std::vector<AppRule> AppRulesModel::sortedRules() const {
    auto rules = store_.rules();
    std::erase_if(rules, [this](const AppRule& rule) {
        const bool matches = collation_.contains(rule.displayName, query.get()) ||
                             collation_.contains(rule.bundleIdentifier(), query.get());
        return rule.systemDefault || !matches;
    });
    std::stable_sort(rules.begin(), rules.end(), [this](const AppRule& left, const AppRule& right) {
        return collation_.isLess(left.displayName, right.displayName);
    });
    return rules;
}

std::vector<AppRulesModel::Row> AppRulesModel::rows() const {
    std::vector<Row> rows{{.id = defaultRow, .name = "", .subtitle = ""}};
    for (const auto& rule : sortedRules()) {
        rows.push_back(rowOf(rule));
    }
    return rows;
}

std::optional<AppRule> AppRulesModel::selectedRule() const {
    return isDefaultSelected() ? store_.defaultRule() : store_.explicitRule(selection.get());
}

void AppRulesModel::write(AppRule rule) {
    if (isDefaultSelected()) {
        store_.setDefaultRule(std::move(rule));
    } else {
        store_.upsert(std::move(rule));
    }
}

void AppRulesModel::addApp(const std::string& bundleIdentifier) {
    if (!store_.explicitRule(bundleIdentifier)) {
        store_.upsert({bundleIdentifier, AppRulesStore::displayName(bundleIdentifier, platform_.workspace())});
    }
    selection.set(bundleIdentifier);
}

void AppRulesModel::resetToDefaults() {
    if (isDefaultSelected()) {
        write(AppRule::initialDefaultRule());
    } else if (const auto rule = selectedRule()) {
        write({rule->bundleIdentifier(), rule->displayName});
    }
}

void AppRulesModel::removeRule() {
    if (const auto rule = store_.explicitRule(selection.get())) {
        store_.remove(rule->id);
    }
    selection.set(defaultRow);
}

} // namespace ambrel
