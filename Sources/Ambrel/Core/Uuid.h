#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

/// A universally unique identifier, held in its canonical text: 36 characters, hyphenated, upper-case.
class Uuid {
public:
    /// Random, version 4.
    [[nodiscard]] static Uuid random();
    /// Takes the canonical form in either case.
    [[nodiscard]] static std::optional<Uuid> parse(std::string_view text);

    [[nodiscard]] const std::string& text() const { return text_; }
    bool operator==(const Uuid&) const = default;

private:
    explicit Uuid(std::string text) : text_(std::move(text)) {}
    std::string text_;
};

} // namespace ambrel
