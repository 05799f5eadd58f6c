#include "formats/text/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace korvane {

namespace {

constexpr auto makeDigitPairs() {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

/// "00" to "99"
constexpr std::array<char, 200> digitPairs = makeDigitPairs();

/// Writes six digits, leading zeros included.
void writeSixDigits(char* out, std::size_t number) {
    std::memcpy(out, &digitPairs[2 * (number / 10000)], 2);
    std::memcpy(out + 2, &digitPairs[2 * (number / 100 % 100)], 2);
    std::memcpy(out + 4, &digitPairs[2 * (number % 100)], 2);
}

char* writeExactReal(char* out, float value) {
    return std::to_chars(out, out + maxNumberLength, value, std::chars_format::general, 6).ptr;
}

} // namespace

char* writeInteger(char* out, std::int32_t value) {
    if (value < 0 || value > 999999) {
        return std::to_chars(out, out + maxNumberLength, value).ptr;
    }
    std::array<char, 6> digits{};
    writeSixDigits(digits.data(), static_cast<std::size_t>(value));
    std::size_t leading = 0;
    while (leading < 5 && digits[leading] == '0') {
        ++leading;
    }
    std::memcpy(out, digits.data() + leading, 6 - leading);
    return out + (6 - leading);
}

char* writeReal(char* out, float value) {
    static constexpr std::array<double, 11> powersOfTen = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1,
                                                           1e2,  1e3,  1e4,  1e5,  1e6};
    static constexpr std::array<double, 10> scales = {1e9, 1e8, 1e7, 1e6, 1e5,
                                                      1e4, 1e3, 1e2, 1e1, 1e0};
    if (std::signbit(value)) {
        *out++ = '-';
        value = -value;
    }
    if (value == 0.0F) {
        *out++ = '0';
        return out;
    }
    const double exact = value;
    if (!(exact >= powersOfTen.front() && exact < powersOfTen.back())) {
        return writeExactReal(out, value);
    }
    // the power of ten of the first digit: powersOfTen[rank] <= value
    std::size_t rank = exact < 1.0 ? 3 : 8;
    while (exact < powersOfTen[rank]) {
        --rank;
    }
    while (exact >= powersOfTen[rank + 1]) {
        ++rank;
    }
    // A float times a power of ten up to 1e9 is exact in double precision, so this rounds the true
    // value, with ties to the even digit.
    auto digits = static_cast<std::size_t>(std::nearbyint(exact * scales[rank]));
    if (digits == 1000000) {
        if (++rank == 10) {
            return writeExactReal(out, value);
        }
        digits = 100000;
    }
    std::array<char, 6> text{};
    writeSixDigits(text.data(), digits);
    std::size_t significant = 6;
    while (text[significant - 1] == '0') {
        --significant;
    }
    if (rank < 4) { // below 1: zeros up to the first digit
        constexpr std::array<char, 5> zeros = {'0', '.', '0', '0', '0'};
        std::memcpy(out, zeros.data(), zeros.size());
        out += zeros.size() - rank;
        std::memcpy(out, text.data(), 6);
        return out + significant;
    }
    const std::size_t whole = rank - 3;
    std::memcpy(out, text.data(), 6);
    if (significant <= whole) {
        return out + whole;
    }
    out[whole] = '.';
    std::memcpy(out + whole + 1, text.data() + whole, 6 - whole);
    return out + significant + 1;
}

} // namespace korvane
