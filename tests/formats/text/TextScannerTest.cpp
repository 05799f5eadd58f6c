#include "formats/text/TextScanner.h"

#include "support/Words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <locale>
#include <memory>
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
Extracted<Number> byScanner(TextScanner in) {
    Extracted<Number> result;
    if constexpr (std::is_same_v<Number, float>) {
        result.ok = in.real(result.value);
    } else {
        result.ok = in.integer(result.value);
    }
    result.rest = result.ok ? in.take(in.remaining()) : "";
    return result;
}

/// Gives a text in pieces of the given size.
ByteSource inPieces(std::string_view text, std::size_t piece) {
    return [text, piece](std::span<char> space) mutable {
        const std::size_t size = std::min({piece, space.size(), text.size()});
        std::copy_n(text.begin(), size, space.begin());
        text.remove_prefix(size);
        return size;
    };
}

template <class Number>
void expectSame(const std::string& text, const Extracted<Number>& expected,
                const Extracted<Number>& got) {
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

/// Alone, with so much text behind it that the quick parsers take it, and through a tiny window.
template <class Number>
void compareWithStream(const std::string& text) {
    expectSame(text, byStream<Number>(text), byScanner<Number>(TextScanner(text)));
    const std::string inContext = text + ";                                        x";
    expectSame(inContext, byStream<Number>(inContext), byScanner<Number>(TextScanner(inContext)));
    TextWindow window(inPieces(text, 3), text.size(), 4);
    expectSame(text, byStream<Number>(text), byScanner<Number>(TextScanner(window)));
}

void compare(const std::string& text) {
    compareWithStream<float>(text);
    compareWithStream<std::int32_t>(text);
}

TEST(TextScanner, NumbersAsAStreamExtractsThem) {
    for (const std::string& text : test::words(
             "1; -1; +1; +-1 --1 - + . -. .5 5. -.5x 1.2.3 1e5 1E5 1e+5 1e-5 1e 1e; 1e+ 1e5e5 "
             "1e5.5 .e5 1.e2 e5 0x10 inf -inf nan infinity NAN(1) 00012 -0 -0.0 1,000 2147483647 "
             "2147483648 -2147483648 -2147483649 4294967295 99999999999999999999999 1e38 "
             "3.4028235e38 3.4028235677e38 3.4028236e38 1e39 -1e39 1e99999999999999999999 "
             "1e-99999999999999999999 -1e-46 7.0e-46 7.1e-46 1.4e-45 1e-39 0.0000e999 "
             "0.00000000000000000000000000000000000000000000001 16777217 "
             "0.1000000014901161193847656250000000000000000000000001 1f 1d0")) {
        compare(text);
    }
    for (const char* text : {"", "   ", " \t\v\f\r\n7 8"}) {
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

    TextWindow window(inPieces("x 1 2", 2), 5, 2);
    TextScanner inWindow(window);
    EXPECT_FALSE(inWindow.real(*std::make_unique<float>()));
    EXPECT_TRUE(inWindow.ended());
    EXPECT_EQ(inWindow.remaining(), 0U);
}

TEST(TextScanner, AWindowOfAnySizeShowsTheSameText) {
    const std::string text = "line one\r\n" + std::string(100, ' ') + "12 -3.5e2;" +
                             std::string(50, '7') + "\n\"quoted\" 2147483647\nlast";
    const auto told = [](TextScanner in) {
        std::int32_t integer = 0;
        float real = 0;
        std::ostringstream all;
        all << in.line().value_or("none") << '|' << in.integer(integer) << integer << '|';
        all << in.real(real) << real << '|' << in.separator() << in.line().value_or("none") << '|';
        all << in.until('"').value_or("none") << in.until('"').value_or("none") << '|';
        all << in.integer(integer) << integer << in.line().value_or("none") << '|';
        all << in.remaining() << in.line().value_or("none") << in.ended();
        return all.str();
    };
    const std::string expected =
        "line one|112|1-350|1" + std::string(50, '7') + "|quoted|12147483647|4last1";
    EXPECT_EQ(told(TextScanner(text)), expected);
    for (std::size_t capacity = 1; capacity < 80; ++capacity) {
        TextWindow window(inPieces(text, 1 + capacity % 5), text.size(), capacity);
        EXPECT_EQ(told(TextScanner(window)), expected) << capacity;
    }
}

TEST(TextScanner, LinesEndWithOrWithoutCarriageReturn) {
    TextScanner in(std::string_view("a\r\nb\n\n\r\nc\rd\n\re"));
    std::vector<std::string> lines;
    for (auto line = in.line(); line && lines.size() < 10; line = in.line()) {
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
