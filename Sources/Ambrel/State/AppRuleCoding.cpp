#include "State/AppRuleCoding.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <nlohmann/json.hpp>

namespace ambrel {

namespace {

using Json = nlohmann::json;
using OrderedJson = nlohmann::ordered_json;

OrderedJson encodeRule(const AppRule& rule) {
    return {
        {"id", rule.id.text()},
        {"bundleIdentifier", rule.bundleIdentifier()},
        {"displayName", rule.displayName},
        {"quitOnLastWindowClose", rule.quitOnLastWindowClose},
        {"idleBehavior", rawValue(rule.idleBehavior)},
        {"idleThresholdMinutes", rule.idleThresholdMinutes},
        {"includedInQuitAll", rule.includedInQuitAll},
        {"systemDefault", rule.systemDefault},
        {"quitWhenHidden", rule.quitWhenHidden},
    };
}

/// Null for a missing member.
const Json& member(const Json& object, const char* key) {
    static const Json null;
    const auto found = object.find(key);
    return found == object.end() ? null : *found;
}

void decode(const Json& value, std::string& text) {
    if (value.is_string()) {
        text = value.get_ref<const std::string&>();
    }
}

void decode(const Json& value, bool& answer) {
    if (value.is_boolean()) {
        answer = value.get<bool>();
    }
}

void decode(const Json& value, Uuid& id) {
    std::string text;
    decode(value, text);
    id = Uuid::parse(text).value_or(id);
}

void decode(const Json& value, AppRule::IdleBehavior& behavior) {
    const auto& all = AppRule::allIdleBehaviors;
    const auto found = std::find_if(all.begin(), all.end(), [&value](auto known) { return value == rawValue(known); });
    behavior = found == all.end() ? behavior : *found;
}

/// A whole number may also be written as 30.0 or 3e1.
void decode(const Json& value, std::int64_t& number) {
    constexpr double bound = 9223372036854775808.0; // 2^63
    using Limits = std::numeric_limits<std::int64_t>;
    if (value.is_number_float()) {
        const double real = value.get<double>();
        number = real == std::trunc(real) && real >= -bound && real < bound ? static_cast<std::int64_t>(real) : number;
    } else if (value.is_number_unsigned()) {
        const auto positive = value.get<std::uint64_t>();
        number = positive <= std::uint64_t{Limits::max()} ? static_cast<std::int64_t>(positive) : number;
    } else if (value.is_number_integer()) {
        number = value.get<std::int64_t>();
    }
}

std::optional<AppRule> decodeRule(const Json& object) {
    if (!object.is_object() || !member(object, "bundleIdentifier").is_string()) {
        return std::nullopt;
    }
    AppRule rule(member(object, "bundleIdentifier").get_ref<const std::string&>());
    decode(member(object, "id"), rule.id);
    decode(member(object, "displayName"), rule.displayName);
    decode(member(object, "quitOnLastWindowClose"), rule.quitOnLastWindowClose);
    decode(member(object, "idleBehavior"), rule.idleBehavior);
    decode(member(object, "idleThresholdMinutes"), rule.idleThresholdMinutes);
    decode(member(object, "includedInQuitAll"), rule.includedInQuitAll);
    decode(member(object, "systemDefault"), rule.systemDefault);
    decode(member(object, "quitWhenHidden"), rule.quitWhenHidden);
    return rule;
}

} // namespace

std::string encode(const Persisted& persisted) {
    auto rules = OrderedJson::array();
    for (const auto& rule : persisted.rules) {
        rules.push_back(encodeRule(rule));
    }
    const OrderedJson envelope{{"rules", std::move(rules)}, {"defaultRule", encodeRule(persisted.defaultRule)}};
    return envelope.dump(-1, ' ', false, OrderedJson::error_handler_t::replace);
}

std::optional<Persisted> decodePersisted(std::string_view text) {
    const auto envelope = Json::parse(text, nullptr, false);
    if (!envelope.is_object() || !member(envelope, "rules").is_array()) {
        return std::nullopt;
    }
    const auto defaultRule = decodeRule(member(envelope, "defaultRule"));
    if (!defaultRule) {
        return std::nullopt;
    }
    Persisted persisted{{}, *defaultRule};
    for (const auto& object : member(envelope, "rules")) {
        const auto rule = decodeRule(object);
        if (!rule) {
            return std::nullopt;
        }
        persisted.rules.push_back(*rule);
    }
    return persisted;
}

} // namespace ambrel
