#include "Platform/Linux/Defaults/DefaultsDocument.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

using Json = nlohmann::ordered_json;

// Deeper, writing would exhaust the stack; with more, looking a member up along the list would take seconds.
constexpr int deepestNesting = 128;
constexpr int mostMembers = 2'000;

bool isListOfStrings(const Json& value) {
    return value.is_array() &&
           std::all_of(value.begin(), value.end(), [](const Json& item) { return item.is_string(); });
}

} // namespace

std::optional<DefaultsDocument> DefaultsDocument::parse(std::string_view text) {
    bool fits = true;
    int members = 0;
    const auto keep = [&](int depth, Json::parse_event_t event, const Json&) {
        members += event == Json::parse_event_t::key ? 1 : 0;
        fits = fits && depth <= deepestNesting && members <= mostMembers;
        return fits;
    };
    DefaultsDocument document;
    document.members_ = Json::parse(text, keep, false);
    if (!fits || !document.members_.is_object()) {
        return std::nullopt;
    }
    return document;
}

std::string DefaultsDocument::text() const {
    return members_.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<DefaultsValue> DefaultsDocument::value(const std::string& key) const {
    const auto found = members_.find(key);
    if (found == members_.end()) {
        return std::nullopt;
    }
    if (found->is_boolean()) {
        return found->get<bool>();
    }
    if (found->is_number()) {
        return found->get<double>();
    }
    if (found->is_string()) {
        return found->get<std::string>();
    }
    return isListOfStrings(*found) ? std::optional<DefaultsValue>(found->get<std::vector<std::string>>())
                                   : std::nullopt;
}

void DefaultsDocument::set(const std::string& key, const DefaultsValue& value) {
    std::visit([&member = members_[key]](const auto& typed) { member = typed; }, value);
}

} // namespace ambrel
