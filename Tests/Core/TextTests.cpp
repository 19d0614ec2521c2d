#include "Core/ParseNumber.h"
#include "Core/Utf8.h"
#include "Core/Uuid.h"

#include <cmath>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(Utf8Test, TellsCharactersFromStrayBytes) {
    struct Case {
        std::string_view text;
        std::string_view mended;
        bool endsInside = false;
    };
    const Case cases[] = {
        {"", ""},
        {"a\u00e9\u20ac\U0001F600\U0010FFFF", "a\u00e9\u20ac\U0001F600\U0010FFFF"},
        {"\xE9t\xE9", "\uFFFDt\uFFFD", true},
        {"a\x80z", "a\uFFFDz"},
        {"\xC0\xAF", "\uFFFD\uFFFD"},                     // overlong
        {"\xE0\x80\xAF", "\uFFFD\uFFFD\uFFFD"},           // overlong
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},           // surrogate
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}, // above U+10FFFF
        {"\xF5", "\uFFFD"},                               //
        {"x\xF0\x9F\x98", "x\uFFFD\uFFFD\uFFFD", true},   //
        {"x\xE2\x82", "x\uFFFD\uFFFD", true},             //
        {"\x80\x80", "\uFFFD\uFFFD"},                     //
        {"\u20ac\x82", "\u20ac\uFFFD"},                   //
    };
    for (const auto& [text, mended, endsInside] : cases) {
        EXPECT_EQ(replacingInvalidUtf8(text), mended);
        EXPECT_EQ(isValidUtf8(text), text == mended) << mended;
        EXPECT_EQ(endsInsideCharacter(text), endsInside) << mended;
    }
}

TEST(UuidTest, TakesTheCanonicalFormOnly) {
    const auto id = Uuid::parse("0123abcd-4567-89ef-ABCD-0123456789ab");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->text(), "0123ABCD-4567-89EF-ABCD-0123456789AB");
    for (const auto* bad : {"", "0123ABCD456789EFABCD0123456789AB", "0123ABCD-4567-89EF-ABCD-0123456789A",
                            "0123ABCD-4567-89EF-ABCD-0123456789ABC", "0123ABCD-4567-89EF-ABCD+0123456789AB",
                            "G123ABCD-4567-89EF-ABCD-0123456789AB", "{123ABCD-4567-89EF-ABCD-0123456789A}"}) {
        EXPECT_FALSE(Uuid::parse(bad)) << bad;
    }
}

TEST(ParseNumber, TakesAWholeTextOrNothing) {
    struct Case {
        std::string text;
        std::optional<double> number;
    };
    const Case cases[] = {
        {"30", 30}, {"-0.5", -0.5}, {"+1e3", 1000}, {"0x10", 16}, {".5", .5}, {"inf", HUGE_VAL}, {"1e999", HUGE_VAL},
        {"", {}},   {" 1", {}},     {"\t1", {}},    {"1 ", {}},   {"1s", {}}, {"1,5", {}},       {"-", {}},
        {"1e", {}}, {"true", {}},   {"\n", {}},     {"--1", {}},  {"0x", {}},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(parseNumber(text), number) << '"' << text << '"';
    }
    EXPECT_TRUE(std::isnan(*parseNumber("nan")));
    EXPECT_EQ(parseNumber(std::string("1\0002", 3)), std::nullopt) << "a text that goes on behind a zero byte";
}

} // namespace
} // namespace ambrel
