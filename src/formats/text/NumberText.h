#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korvane {

/// The quick parsers below need this many readable bytes from the first character on.
inline constexpr std::int64_t quickNumberReach = 32;

/// Returns true if the character is an ASCII digit.
inline bool isDigit(char c) {
    return static_cast<unsigned char>(c - '0') < 10;
}

/// The digits at the beginning of a text, at most eight.
struct LeadingDigits {
    std::uint32_t value;
    std::uint32_t count;
};

/// Takes up to eight digits at once; eight bytes must be readable.
inline LeadingDigits leadingDigits(const char* p) {
    static_assert(std::endian::native == std::endian::little, "the first digit is the lowest byte");
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    word ^= 0x3030303030303030U; // a digit becomes its value
    const std::uint64_t others =
        ((word + 0x7676767676767676U) | word) & 0x8080808080808080U; // high bits of non-digits
    const auto count = static_cast<std::uint32_t>(std::countr_zero(others)) / 8;
    if (count == 0) {
        return {0, 0};
    }
    word <<= 64 - 8 * count; // zeros before the digits, the rest dropped
    word = word * 10 + (word >> 8U);
    word = ((word & 0x000000FF000000FFU) * 0x000F424000000064U +
            ((word >> 16U) & 0x000000FF000000FFU) * 0x0000271000000001U) >>
           32U;
    return {static_cast<std::uint32_t>(word), count};
}

/// Parses a short decimal integer (an optional minus sign and up to eight digits) as
/// std::from_chars does. Returns null for anything else: use the exact parser then. (Indices are
/// short, so a digit loop with a predictable end beats taking eight at once.)
inline const char* quickInteger(const char* p, std::int32_t& value) {
    const bool negative = *p == '-';
    p += negative ? 1 : 0;
    auto number = static_cast<std::int32_t>(static_cast<unsigned char>(*p - '0'));
    if (number > 9) {
        return nullptr;
    }
    for (int i = 1; i < 9; ++i) {
        const auto digit = static_cast<std::int32_t>(static_cast<unsigned char>(p[i] - '0'));
        if (digit > 9) {
            value = negative ? -number : number;
            return p + i;
        }
        number = number * 10 + digit;
    }
    return nullptr;
}

/// Parses an exponent of up to two digits, if one follows a number, and adds it. Returns false if
/// it has no digits or more.
inline bool quickExponent(const char*& p, std::int32_t& exponent) {
    if (*p != 'e' && *p != 'E') {
        return true;
    }
    const char sign = *++p;
    p += sign == '-' || sign == '+' ? 1 : 0;
    if (!isDigit(*p)) {
        return false;
    }
    std::int32_t power = *p++ - '0';
    if (isDigit(*p)) {
        power = power * 10 + (*p++ - '0');
    }
    exponent += sign == '-' ? -power : power;
    return !isDigit(*p);
}

/// Parses a decimal number of up to 19 digits, at most eight of them before the point, to the same
/// float, bit by bit, as std::from_chars. Returns null if that takes more than one exact step: use
/// the exact parser then.
inline const char* quickReal(const char* p, float& value) {
    static constexpr std::array<double, 23> powersOfTen = {
        1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    static constexpr std::array<std::uint64_t, 9> shifts = {
        1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    const bool negative = *p == '-';
    p += negative ? 1 : 0;
    std::uint64_t digits = 0;
    std::uint32_t count = 0;
    while (isDigit(*p) && count < 8) {
        digits = digits * 10 + static_cast<std::uint64_t>(*p++ - '0');
        ++count;
    }
    const bool cut = isDigit(*p);
    std::int32_t exponent = 0;
    if (*p == '.') {
        LeadingDigits part = leadingDigits(++p);
        digits = digits * shifts[part.count] + part.value;
        count += part.count;
        exponent = -static_cast<std::int32_t>(part.count);
        p += part.count;
        if (part.count == 8) {
            part = leadingDigits(p);
            digits = digits * shifts[part.count] + part.value;
            count += part.count;
            exponent -= static_cast<std::int32_t>(part.count);
            p += part.count;
            if (part.count == 8) {
                return nullptr;
            }
        }
    }
    if (cut || count == 0 || count > 19 || !quickExponent(p, exponent)) {
        return nullptr;
    }
    // With both numbers exact in double precision one operation rounds once ...
    if ((digits >> 53U) != 0 || exponent < -22 || exponent > 22) {
        return nullptr;
    }
    const auto exact = static_cast<double>(static_cast<std::int64_t>(digits));
    const double result = exponent < 0 ? exact / powersOfTen[static_cast<std::size_t>(-exponent)]
                                       : exact * powersOfTen[static_cast<std::size_t>(exponent)];
    // ... and rounding again to single precision errs only at the exact midpoint of two floats.
    constexpr std::uint64_t droppedBits = (1U << 29U) - 1;
    if ((std::bit_cast<std::uint64_t>(result) & droppedBits) == 1U << 28U) {
        return nullptr;
    }
    value = static_cast<float>(negative ? -result : result);
    return p;
}

/// No written number is longer than this.
inline constexpr std::size_t maxNumberLength = 24;

/// Writes a decimal integer and returns the position after it.
char* writeInteger(char* out, std::int32_t value);

/// Writes a number with at most six significant digits, in general notation and without trailing
/// zeros, as std::to_chars does, and returns the position after it.
char* writeReal(char* out, float value);

} // namespace korvane
