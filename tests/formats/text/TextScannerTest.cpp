#include "formats/text/TextScanner.h"

#include "support/Words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <locale>
#include <memory>
#include <random>
#include <sstream>

namespace korvane {
namespace {

/// Returns a number's bits and the text left after it, or "none".
template <class Number>
std::string told(bool ok, Number value, const std::string& rest) {
    return ok ? std::to_string(std::bit_cast<std::int32_t>(value)) + '|' + rest : "none";
}

/// Returns what a text stream in the classic locale makes of the text.
template <class Number>
std::string byStream(const std::string& text) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    Number value{};
    const bool ok = static_cast<bool>(in >> value);
    in.clear();
    return told(ok, value, {std::istreambuf_iterator<char>(in), {}});
}

template <class Number>
std::string byScanner(TextScanner in) {
    Number value{};
    bool ok = false;
    if constexpr (std::is_same_v<Number, float>) {
        ok = in.real(value);
    } else {
        ok = in.integer(value);
    }
    return told(ok, value, std::string(in.take(in.remaining())));
}

/// Supplies a text in pieces of the given size.
ByteSource inPieces(std::string_view text, std::size_t piece) {
    return [text, piece](std::span<char> space) mutable {
        const std::size_t size = std::min({piece, space.size(), text.size()});
        std::copy_n(text.begin(), size, space.begin());
        text.remove_prefix(size);
        return size;
    };
}

/// Compares the text alone, followed by enough text for the quick parsers, and in a tiny window.
template <class Number>
void compareWithStream(const std::string& text) {
    const std::string expected = byStream<Number>(text);
    ASSERT_EQ(byScanner<Number>(TextScanner(text)), expected) << text;
    const std::string inContext = text + ";                                        x";
    ASSERT_EQ(byScanner<Number>(TextScanner(inContext)), byStream<Number>(inContext)) << text;
    TextWindow window(inPieces(text, 3), text.size(), 4);
    ASSERT_EQ(byScanner<Number>(TextScanner(window)), expected) << text;
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
             "-0 000 -00000001 99999999 -99999999 0000000001 1000000000 4294967297 -42: -42/ 12e3 "
             "12-3 1x -+1 "
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
    const std::string text = "line\rone\r\n\n" + std::string(100, ' ') + "12 -3.5e2;" +
                             std::string(50, '7') + "\n\"quoted\" 2147483647\nlast";
    const auto told = [](TextScanner in) {
        std::int32_t integer = 0;
        float real = 0;
        std::ostringstream all;
        all << in.line().value_or("none") << in.line().value_or("none") << '|'
            << in.integer(integer) << integer << '|';
        all << in.real(real) << real << '|' << in.separator() << in.line().value_or("none") << '|';
        all << in.until('"').value_or("none") << in.until('"').value_or("none") << '|';
        all << in.integer(integer) << integer << in.line().value_or("none") << '|';
        all << in.remaining() << in.line().value_or("none") << in.ended();
        return all.str();
    };
    const std::string expected =
        "line\rone|112|1-350|1" + std::string(50, '7') + "|quoted|12147483647|4last1";
    EXPECT_EQ(told(TextScanner(text)), expected);
    for (std::size_t capacity = 1; capacity < 80; ++capacity) {
        TextWindow window(inPieces(text, 1 + capacity % 5), text.size(), capacity);
        EXPECT_EQ(told(TextScanner(window)), expected) << capacity;
    }
}

} // namespace
} // namespace korvane
