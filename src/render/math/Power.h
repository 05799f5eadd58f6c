#pragma once

#include <bit>
#include <cstdint>

namespace korvane {

/// `base` to the power of `exponent` for a base above 0, accurate to the nearest float or its
/// neighbour. The result is clamped to 2^-126 and 2^126; a NaN exponent returns 2^-126. This runs
/// for every highlight: std::pow also maintains the floating-point exceptions, and among wide
/// vector registers a call of it takes up to thirty times as long.
inline float positivePower(float base, float exponent) {
    // base = mantissa * 2^whole, with a mantissa between sqrt(1/2) and sqrt(2)
    constexpr std::uint64_t rootOfHalf = 0x3fe6a09e667f3bcdU;
    constexpr std::uint64_t fraction = (std::uint64_t{1} << 52U) - 1;
    const std::uint64_t above = std::bit_cast<std::uint64_t>(double{base}) - rootOfHalf;
    const auto whole = static_cast<double>(static_cast<std::int64_t>(above) >> 52U);
    const auto mantissa = std::bit_cast<double>((above & fraction) + rootOfHalf);

    // the logarithm's series in s = (m - 1) / (m + 1), which is at most 0.172 here
    constexpr double logarithmOf2 = 0.6931471805599453;
    const double s = (mantissa - 1.0) / (mantissa + 1.0);
    const double t = s * s;
    const double series = 1.0 + t * (1.0 / 3) + t * t * (1.0 / 5 + t * (1.0 / 7)) +
                          t * t * (t * t) * (1.0 / 9 + t * (1.0 / 11));
    double y = (whole + s * series * (2.0 / logarithmOf2)) * exponent;

    // 2^y = 2^n * e^x, with x at most 0.347
    constexpr double limit = 126.0;
    y = y > -limit ? y : -limit;
    y = y < limit ? y : limit;
    constexpr double toWhole =
        6755399441055744.0; // 1.5 * 2^52: numbers of its size have no fraction
    const double n = (y + toWhole) - toWhole;
    const double x = (y - n) * logarithmOf2;
    const double x2 = x * x;
    const double x4 = x2 * x2;
    const double power = 1.0 + x + x2 * (1.0 / 2 + x * (1.0 / 6)) +
                         x4 * (1.0 / 24 + x * (1.0 / 120) + x2 * (1.0 / 720 + x * (1.0 / 5040)) +
                               x4 * (1.0 / 40320));
    constexpr int bias = 1023;
    const auto scale = std::bit_cast<double>(
        static_cast<std::uint64_t>(static_cast<std::int64_t>(n) + bias) << 52U);
    return static_cast<float>(power * scale);
}

} // namespace korvane
