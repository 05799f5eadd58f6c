#include "formats/TextScanner.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <locale>
#include <random>
#include <sstream>

namespace korvane {
namespace {

/// What a text stream in the classic locale makes of the same text.
template <class Number>
struct Extracted {
    bool ok = false;
    Number value{};
    std::string rest;
};

template <class Number>
Extracted<Number> byStream(const std::string& text) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    Extracted<Number> result;
    result.ok = static_cast<bool>(in >> result.value);
    if (result.ok) {
        in.clear();
        result.rest.assign(std::istreambuf_iterator<char>(in), {});
    }
    return result;
}

template <class Number>
Extracted<Number> byScanner(const std::string& text) {
    TextScanner in(text);
    Extracted<Number> result;
    if constexpr (std::is_same_v<Number, float>) {
        result.ok = in.real(result.value);
    } else {
        result.ok = in.integer(result.value);
    }
    result.rest = result.ok ? text.substr(text.size() - in.remaining()) : "";
    return result;
}

template <class Number>
void compareWithStream(const std::string& text) {
    const auto expected = byStream<Number>(text);
    const auto got = byScanner<Number>(text);
    ASSERT_EQ(got.ok, expected.ok) << '"' << text << '"';
    if (expected.ok) {
        ASSERT_EQ(got.rest, expected.rest) << '"' << text << '"';
        if constexpr (std::is_same_v<Number, float>) {
            ASSERT_EQ(std::bit_cast<std::uint32_t>(got.value),
                      std::bit_cast<std::uint32_t>(expected.value))
                << '"' << text << '"';
        } else {
            ASSERT_EQ(got.value, expected.value) << '"' << text << '"';
        }
    }
}

void compare(const std::string& text) {
    compareWithStream<float>(text);
    compareWithStream<std::int32_t>(text);
}

TEST(TextScanner, NumbersAsAStreamExtractsThem) {
    for (const char* text : {"1;",
                             "-1;",
                             "+1;",
                             "+-1",
                             "--1",
                             "-",
                             "+",
                             ".",
                             "-.",
                             "",
                             "   ",
                             " \t\v\f\r\n7 8",
                             ".5",
                             "5.",
                             "-.5x",
                             "1.2.3",
                             "1e5",
                             "1E5",
                             "1e+5",
                             "1e-5",
                             "1e",
                             "1e;",
                             "1e+",
                             "1e5e5",
                             "1e5.5",
                             ".e5",
                             "1.e2",
                             "e5",
                             "0x10",
                             "inf",
                             "-inf",
                             "nan",
                             "infinity",
                             "NAN(1)",
                             "00012",
                             "-0",
                             "-0.0",
                             "1,000",
                             "2147483647",
                             "2147483648",
                             "-2147483648",
                             "-2147483649",
                             "4294967295",
                             "99999999999999999999999",
                             "1e38",
                             "3.4028235e38",
                             "3.4028235677e38",
                             "3.4028236e38",
                             "1e39",
                             "-1e39",
                             "1e99999999999999999999",
                             "1e-99999999999999999999",
                             "-1e-46",
                             "7.0e-46",
                             "7.1e-46",
                             "1.4e-45",
                             "1e-39",
                             "0.0000e999",
                             "0.00000000000000000000000000000000000000000000001",
                             "16777217",
                             "0.1000000014901161193847656250000000000000000000000001",
                             "1f",
                             "1d0"}) {
        compare(text);
    }
    compare(std::string(5000, '9') + "e-4990;");
    compare("0." + std::string(5000, '0') + "5e5000");
    compare("0." + std::string(5000, '0') + "5");
    compare(std::string(5000, '9'));
}

TEST(TextScanner, RandomNumberTextsAsAStreamExtractsThem) {
    std::mt19937 random(1);
    const std::string alphabet = "0123456789012345678901234567890123456789..--++eE;, x";
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (auto length = random() % 14; length > 0; --length) {
            text += alphabet[random() % alphabet.size()];
        }
        compare(text);
    }
    for (int i = 0; i < 100000; ++i) {
        std::array<char, 64> text{};
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        std::snprintf(text.data(), text.size(), "%.*g;", static_cast<int>(random() % 12),
                      static_cast<double>(value));
        compare(text.data());
    }
}

TEST(TextScanner, FailureEndsTheText) {
    TextScanner in(std::string_view("x 1 2"));
    std::int32_t value = 5;
    EXPECT_FALSE(in.integer(value));
    EXPECT_EQ(value, 5);
    EXPECT_TRUE(in.ended());
    EXPECT_FALSE(in.separator());
    EXPECT_FALSE(in.line().has_value());
}

TEST(TextScanner, LinesEndWithOrWithoutCarriageReturn) {
    TextScanner in(std::string_view("a\r\nb\n\n\r\nc\rd\n\re"));
    std::vector<std::string> lines;
    while (const auto line = in.line()) {
        lines.emplace_back(*line);
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "b", "", "", "c\rd", "\re"}));
}

TEST(TextScanner, SeparatorsSkipWhiteSpaceAndTakeAnything) {
    TextScanner in(std::string_view(" \n ;x\t\"name\"rest"));
    EXPECT_TRUE(in.separator());
    EXPECT_TRUE(in.separator());
    EXPECT_EQ(in.until('"'), "\t");
    EXPECT_EQ(in.until('"'), "name");
    EXPECT_FALSE(in.until('"').has_value());
    EXPECT_TRUE(in.ended());
}

} // namespace
} // namespace korvane
