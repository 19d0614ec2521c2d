#include "Core/ParseNumber.h"

#include <cmath>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

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
