#include "Models/Collation.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(CollationTests, OrdersNamesAsTheLanguageDoes) {
    struct Case {
        const char* locale;
        std::vector<std::string> order;
    };
    const Case cases[] = {
        {"en_US", {"", "Apfel", "Äpfel", "apple", "Banana", "cherry", "Zoo"}},
        {"sv_SE", {"Banan", "zebra", "Ångest", "Äpple", "Öl"}},
        {"cs_CZ", {"cibule", "dub", "hora", "chata", "ikona"}},
        {"en_US_POSIX", {"apple", "Banana", "cherry"}}, // bytes would put the capital first
    };
    for (const auto& each : cases) {
        const Collation collation(each.locale);
        auto names = each.order;
        std::reverse(names.begin(), names.end());
        std::stable_sort(names.begin(), names.end(),
                         [&](const auto& left, const auto& right) { return collation.isLess(left, right); });
        EXPECT_EQ(names, each.order) << each.locale;
    }
}

TEST(CollationTests, SearchesByLettersOfAnyCase) {
    struct Case {
        const char* locale;
        const char* text;
        const char* part;
        bool found;
    };
    const Case cases[] = {
        {"en_US", "Text Editor", "t ED", true},
        {"en_US", "Text Editor", "text  ", false},
        {"en_US", "Éditeur", "éd", true},
        {"en_US",
         "E\xcc\x81"
         "diteur",
         "éd", true}, // the accent as a character of its own
        {"en_US", "Editeur", "éd", false},
        {"de_DE", "Straße", "STRASS", true},
        {"tr_TR", "DISK", "dısk", true},
        {"tr_TR", "DISK", "disk", false},
        {"en_US", "bad \xff byte", "BYTE", true},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Collation(each.locale).contains(each.text, each.part), each.found)
            << each.locale << ": " << each.part << " in " << each.text;
    }
}

} // namespace
} // namespace ambrel
