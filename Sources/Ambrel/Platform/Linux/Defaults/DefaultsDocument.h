#pragma once

#include "Platform/UserDefaults.h"

#include <string_view>

#include <nlohmann/json.hpp>

namespace ambrel {

/// The content of a file of preferences: one JSON object. Members that we have no type for, or don't know, keep their
/// place and their value.
class DefaultsDocument {
public:
    /// Absent unless `text` is an object of a size and depth that preferences can have.
    [[nodiscard]] static std::optional<DefaultsDocument> parse(std::string_view text);

    /// One member a line, for people to read and edit. Text that isn't UTF-8 is mended with U+FFFD.
    [[nodiscard]] std::string text() const;

    /// Absent too for a member that is none of our types.
    [[nodiscard]] std::optional<DefaultsValue> value(const std::string& key) const;
    void set(const std::string& key, const DefaultsValue& value);

private:
    nlohmann::ordered_json members_ = nlohmann::ordered_json::object();
};

} // namespace ambrel
