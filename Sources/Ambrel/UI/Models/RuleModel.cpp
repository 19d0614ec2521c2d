#include "UI/Models/RuleModel.h"

#include <algorithm>
#include <limits>

namespace ambrel {

void RuleModel::componentComplete() {
    selection_ = rules_->selection();
    isDefault_ = selection_ == RulesModel::defaultRow();
    connect(rules_, &RulesModel::ruleChanged, this, &RuleModel::refresh);
    refresh();
}

void RuleModel::refresh() {
    if (rules_->selection() != selection_) {
        return;
    }
    const auto rule = rules_->selectedRule();
    exists_ = rule.has_value();
    rule_ = rule.value_or(AppRule::initialDefaultRule());
    changed();
}

template <typename Value> void RuleModel::write(Value AppRule::*field, Value value) {
    auto rule = rules_->selection() == selection_ ? rules_->selectedRule() : std::nullopt;
    // A screen reader presses disabled controls too.
    if (rule && !rule->systemDefault) {
        (*rule).*field = value;
        rules_->write(*rule);
    }
}

int RuleModel::idleThresholdMinutes() const {
    // The file may hold any number.
    return static_cast<int>(std::clamp<std::int64_t>(rule_.idleThresholdMinutes, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

QString RuleModel::iconSource() const {
    return isDefault_ || rules_ == nullptr ? QString() : rules_->icon(bundleIdentifier());
}

void RuleModel::setQuitOnLastWindowClose(bool value) {
    write(&AppRule::quitOnLastWindowClose, value);
}

void RuleModel::setQuitWhenHidden(bool value) {
    write(&AppRule::quitWhenHidden, value);
}

void RuleModel::setIdleBehavior(IdleBehavior value) {
    write(&AppRule::idleBehavior, static_cast<AppRule::IdleBehavior>(value));
}

void RuleModel::setIdleThresholdMinutes(int value) {
    write(&AppRule::idleThresholdMinutes, std::int64_t{value});
}

void RuleModel::setIncludedInQuitAll(bool value) {
    write(&AppRule::includedInQuitAll, value);
}

} // namespace ambrel
