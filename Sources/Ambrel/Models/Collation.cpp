#include "Models/Collation.h"

#include "Models/UserLocale.h"

#include <cstdint>

#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace ambrel {

namespace {

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

/// In these languages a capital I belongs to the i without a dot.
bool hasDotlessI(const icu::Locale& locale) {
    const std::string_view language = locale.getLanguage();
    return language == "tr" || language == "az";
}

std::unique_ptr<icu::Collator> collator(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(locale, status));
    if (U_FAILURE(status) != 0) {
        return nullptr;
    }
    made->setStrength(icu::Collator::SECONDARY);
    return made;
}

} // namespace

struct Collation::Rules {
    explicit Rules(const icu::Locale& locale)
        : order(collator(locale)), folding(hasDotlessI(locale) ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT) {}

    /// Searched by letters, not by the units of the order: a Czech who types "c" means "Chess" too.
    [[nodiscard]] icu::UnicodeString folded(std::string_view text) const {
        UErrorCode status = U_ZERO_ERROR;
        auto unicode = icu::UnicodeString::fromUTF8(piece(text));
        unicode.foldCase(folding);
        const auto* const form = icu::Normalizer2::getNFCInstance(status);
        return U_SUCCESS(status) != 0 ? form->normalize(unicode, status) : unicode;
    }

    std::unique_ptr<icu::Collator> order; ///< null where ICU has lost its data
    std::uint32_t folding;
};

Collation::Collation(const std::string& locale) : rules_(std::make_unique<const Rules>(localeNamed(locale))) {}

Collation::~Collation() = default;

bool Collation::isLess(std::string_view left, std::string_view right) const {
    if (!rules_->order) {
        return left < right;
    }
    UErrorCode status = U_ZERO_ERROR;
    return rules_->order->compareUTF8(piece(left), piece(right), status) == UCOL_LESS;
}

bool Collation::contains(std::string_view text, std::string_view part) const {
    return part.empty() || rules_->folded(text).indexOf(rules_->folded(part)) >= 0;
}

std::string lowerCased(std::string_view text) {
    std::string lower;
    icu::UnicodeString::fromUTF8(piece(text)).toLower(icu::Locale::getRoot()).toUTF8String(lower);
    return lower;
}

} // namespace ambrel
