#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace korvane {

/// How many readable bytes the quick parsers below need from the first character on.
inline constexpr std::int64_t quickNumberReach = 32;

inline bool isDigit(char c) {
    return static_cast<unsigned char>(c - '0') < 10;
}

/// Parses a short decimal integer (an optional minus sign and up to nine digits) the way
/// std::from_chars does. Null where it is none of these: the exact parser has to decide.
inline const char* quickInteger(const char* p, std::int32_t& value) {
    const bool negative = *p == '-';
    p += negative ? 1 : 0;
    const char* const first = p;
    std::int32_t number = 0;
    while (isDigit(*p) && p - first < 10) {
        number = static_cast<std::int32_t>(static_cast<std::uint32_t>(number) * 10U +
                                           static_cast<std::uint32_t>(*p++ - '0'));
    }
    if (p == first || p - first > 9) {
        return nullptr;
    }
    value = negative ? -number : number;
    return p;
}

/// Parses a decimal number of up to 19 digits to the float that std::from_chars gives, bit by bit.
/// Null where that takes more than one exact step: the exact parser has to decide.
inline const char* quickReal(const char* p, float& value) {
    static constexpr std::array<double, 23> powersOfTen = {
        1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr int mostDigits = 19;
    const bool negative = *p == '-';
    p += negative ? 1 : 0;
    std::uint64_t digits = 0;
    const char* start = p;
    while (isDigit(*p) && p - start <= mostDigits) {
        digits = digits * 10 + static_cast<std::uint64_t>(*p++ - '0');
    }
    std::int64_t count = p - start;
    std::int64_t exponent = 0;
    if (*p == '.') {
        start = ++p;
        while (isDigit(*p) && count + (p - start) <= mostDigits) {
            digits = digits * 10 + static_cast<std::uint64_t>(*p++ - '0');
        }
        exponent = start - p;
        count -= exponent;
    }
    if (count == 0 || count > mostDigits) {
        return nullptr;
    }
    if (*p == 'e' || *p == 'E') {
        const char sign = *++p;
        p += sign == '-' || sign == '+' ? 1 : 0;
        if (!isDigit(*p)) {
            return nullptr;
        }
        std::int64_t power = *p++ - '0';
        if (isDigit(*p)) {
            power = power * 10 + (*p++ - '0');
        }
        if (isDigit(*p)) {
            return nullptr;
        }
        exponent += sign == '-' ? -power : power;
    }
    // With both numbers exact in double precision one operation rounds once ...
    if ((digits >> 53U) != 0 || exponent < -22 || exponent > 22) {
        return nullptr;
    }
    const auto exact = static_cast<double>(static_cast<std::int64_t>(digits));
    const double result = exponent < 0 ? exact / powersOfTen[static_cast<std::size_t>(-exponent)]
                                       : exact * powersOfTen[static_cast<std::size_t>(exponent)];
    // ... and rounding again to single precision errs only from the very middle of two floats.
    constexpr std::uint64_t droppedBits = (1U << 29U) - 1;
    if ((std::bit_cast<std::uint64_t>(result) & droppedBits) == 1U << 28U) {
        return nullptr;
    }
    value = static_cast<float>(negative ? -result : result);
    return p;
}

/// No number is longer than this.
inline constexpr std::size_t mostNumberLength = 24;

/// Writes a decimal integer and gives the position behind it.
char* writeInteger(char* out, std::int32_t value);

/// Writes a number with six significant digits at the most, in general notation and without
/// trailing zeros, as std::to_chars does, and gives the position behind it.
char* writeReal(char* out, float value);

} // namespace korvane
