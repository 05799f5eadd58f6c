#include "formats/text/NumberText.h"

#include "support/Words.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <system_error>
#include <vector>

namespace korvane {
namespace {

std::string quick(float value) {
    std::array<char, maxNumberLength> text{};
    return {text.data(), writeReal(text.data(), value)};
}

std::string exact(float value) {
    std::array<char, 64> text{};
    return {text.data(),
            std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 6).ptr};
}

/// Expects a number, its two neighbours and their negatives to be written as the library does.
void compareWriting(float value) {
    for (const float v : {value, std::nextafter(value, 0.0F), std::nextafter(value, 1e38F)}) {
        ASSERT_EQ(quick(v), exact(v));
        ASSERT_EQ(quick(-v), exact(-v));
    }
}

TEST(NumberText, RealsAreWrittenAsTheLibraryDoes) {
    using Limits = std::numeric_limits<float>;
    for (const float value : {0.0F, 1e-4F, 999999.5F, 999999.4F, 99999.95F, 0.09999995F, 1234567.0F,
                              Limits::infinity(), Limits::quiet_NaN()}) {
        compareWriting(value);
    }
    // every binary exponent
    std::mt19937 random(2);
    for (std::uint32_t exponent = 0; exponent < 256; ++exponent) {
        for (int i = 0; i < 1000; ++i) {
            const auto fraction = static_cast<std::uint32_t>(random()) >> 9U;
            compareWriting(std::bit_cast<float>(exponent << 23U | fraction));
        }
    }
}

TEST(NumberText, TiesAndSixDigitBoundariesRoundAsTheLibraryDoes) {
    for (float scale = 1.0F; scale > 1e-5F; scale /= 2) {
        // sums of powers of two: many have a 5 after the sixth digit
        for (int n = 1; n < 2000; ++n) {
            compareWriting(static_cast<float>(n) * scale);
        }
    }
    for (std::uint32_t n = 100000; n < 1000000; n += 7) {
        compareWriting(static_cast<float>(n) + 0.5F);
    }
    for (double power = 1e-5; power < 2e7; power *= 10) {
        for (const double digits :
             {1.0, 9.99999, 9.999994, 9.999995, 9.999996, 1.000005, 5.000005}) {
            compareWriting(static_cast<float>(digits * power));
        }
    }
}

TEST(NumberText, IntegersAreWrittenAsTheLibraryDoes) {
    std::mt19937 random(3);
    using Limits = std::numeric_limits<std::int32_t>;
    std::vector<std::int32_t> values = {
        0, -1, 9, 10, 999999, 1000000, Limits::max(), Limits::min()};
    for (int i = 0; i < 100000; ++i) {
        values.push_back(static_cast<std::int32_t>(random()) >> (random() % 32));
    }
    for (const std::int32_t value : values) {
        std::array<char, maxNumberLength> text{};
        ASSERT_EQ(std::string(text.data(), writeInteger(text.data(), value)),
                  std::to_string(value));
    }
}

/// Expects the quick parser to match the library's bits and end. Returns false if it declines.
bool compareParsing(const std::string& number) {
    const std::string text = number + std::string(quickNumberReach, ';');
    float expected = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), expected);
    float value = 0;
    const char* stop = quickReal(text.data(), value);
    if (stop == nullptr) {
        return false;
    }
    EXPECT_EQ(result.ec, std::errc()) << number;
    EXPECT_EQ(stop - text.data(), result.ptr - text.data()) << number;
    EXPECT_EQ(std::bit_cast<std::uint32_t>(value), std::bit_cast<std::uint32_t>(expected))
        << number;
    return true;
}

TEST(NumberText, RealsAreParsedToTheLibrarysBits) {
    std::mt19937 random(4);
    int quickOnes = 0;
    constexpr int rounds = 300000;
    for (int i = 0; i < rounds; ++i) {
        std::array<char, 64> text{};
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        const char* format = i % 3 == 0 ? "%.*g" : i % 3 == 1 ? "%.*f" : "%.*e";
        const double shown = i % 3 == 1 ? std::fmod(value, 1e6) : value;
        std::snprintf(text.data(), text.size(), format, static_cast<int>(random() % 18), shown);
        quickOnes += compareParsing(text.data()) ? 1 : 0;
    }
    EXPECT_GT(quickOnes, rounds / 3);
    EXPECT_FALSE(testing::Test::HasFailure());
}

TEST(NumberText, MiddlesBetweenFloatsAreParsedToTheLibrarysBits) {
    // the midpoint of two floats is where rounding twice would show
    std::mt19937 random(5);
    for (int i = 0; i < 100000; ++i) {
        const float value = std::ldexp(static_cast<float>((random() >> 8U) | 1U << 23U),
                                       static_cast<int>(random() % 20) - 30);
        const double middle = (double{value} + double{std::nextafter(value, 1e38F)}) / 2;
        for (const double v : {middle, std::nextafter(middle, 0.0), std::nextafter(middle, 1e38)}) {
            std::array<char, 64> text{};
            std::snprintf(text.data(), text.size(), "%.*g", 9 + static_cast<int>(random() % 10), v);
            compareParsing(text.data());
        }
    }
    for (const std::string& text : test::words(
             "0.1000000000000000055 9007199254740993 9007199254740991 16777217 16777219 1e22 "
             "1e23 1e-22 1e-23 123456789012345678901234567890 0.00000000000000000001 "
             "00000000000000000000.5 1. .5 -0 -0.0 1e+05 1e5.5 1e 1e+ 1e123 - .")) {
        compareParsing(text);
    }
}

} // namespace
} // namespace korvane
