#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace ambrel {

/// How names are ordered and searched in the user's language. Upper and lower case make no difference, accents do.
class Collation {
public:
    /// An empty name is the user's own locale.
    explicit Collation(const std::string& locale = {});
    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;
    ~Collation();

    [[nodiscard]] bool isLess(std::string_view left, std::string_view right) const;
    /// Everything contains the empty text.
    [[nodiscard]] bool contains(std::string_view text, std::string_view part) const;

private:
    struct Rules;
    std::unique_ptr<const Rules> rules_;
};

/// In lower case by the rules that all languages share.
[[nodiscard]] std::string lowerCased(std::string_view text);

} // namespace ambrel
