#pragma once

#include <cstdint>
#include <cstring>

namespace korvane {

// Four numbers side by side. The compilers map these to the vector instructions of any machine.
// They stop vectorising plain loops once a depth test is in them.
using FloatLanes [[gnu::vector_size(16)]] = float;
using IntLanes [[gnu::vector_size(16)]] = std::int32_t;
using UnsignedLanes [[gnu::vector_size(16)]] = std::uint32_t;
/// Eight small numbers side by side, and two wide ones.
using ShortLanes [[gnu::vector_size(16)]] = std::uint16_t;
using WideLanes [[gnu::vector_size(16)]] = std::uint64_t;

inline constexpr std::int32_t laneCount = 4;

template <class Lanes, class Number>
Lanes loadLanes(const Number* from) {
    static_assert(sizeof(Lanes) == laneCount * sizeof(Number));
    Lanes lanes;
    std::memcpy(&lanes, from, sizeof lanes);
    return lanes;
}

template <class Lanes, class Number>
void storeLanes(Number* to, const Lanes& lanes) {
    static_assert(sizeof(Lanes) == laneCount * sizeof(Number));
    std::memcpy(to, &lanes, sizeof lanes);
}

inline FloatLanes allLanes(float value) {
    return FloatLanes{value, value, value, value};
}

inline IntLanes allLanes(std::int32_t value) {
    return IntLanes{value, value, value, value};
}

/// Takes each lane from a where the mask's lane is all ones, from b where it is zero.
inline IntLanes select(IntLanes mask, IntLanes a, IntLanes b) {
    return (mask & a) | (~mask & b);
}

inline FloatLanes select(IntLanes mask, FloatLanes a, FloatLanes b) {
    return reinterpret_cast<FloatLanes>(
        select(mask, reinterpret_cast<IntLanes>(a), reinterpret_cast<IntLanes>(b)));
}

/// Whether any lane of a mask is set.
inline bool anyLane(IntLanes mask) {
    std::uint64_t halves[2];
    std::memcpy(halves, &mask, sizeof halves);
    return (halves[0] | halves[1]) != 0;
}

/// Truncates toward zero; every lane must be within range.
inline IntLanes truncated(FloatLanes lanes) {
    return __builtin_convertvector(lanes, IntLanes);
}

inline FloatLanes numbers(IntLanes lanes) {
    return __builtin_convertvector(lanes, FloatLanes);
}

/// Widens eight bytes to numbers, the lowest byte first.
inline ShortLanes widened(std::uint64_t bytes) {
    using ByteLanes [[gnu::vector_size(16)]] = std::uint8_t;
    const auto low = reinterpret_cast<ByteLanes>(WideLanes{bytes, 0});
    return reinterpret_cast<ShortLanes>(__builtin_shufflevector(
        low, ByteLanes{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
}

/// The first four lanes plus the other four, in the first four.
inline ShortLanes foldedHalves(ShortLanes lanes) {
    const auto wide = reinterpret_cast<WideLanes>(lanes);
    return lanes + reinterpret_cast<ShortLanes>(__builtin_shufflevector(wide, wide, 1, 1));
}

/// The first four lanes of both.
inline ShortLanes lowerHalves(ShortLanes a, ShortLanes b) {
    return reinterpret_cast<ShortLanes>(__builtin_shufflevector(
        reinterpret_cast<WideLanes>(a), reinterpret_cast<WideLanes>(b), 0, 2));
}

/// Clamps each lane to the bounds; NaN becomes the lower one.
inline FloatLanes clampLanes(FloatLanes lanes, FloatLanes low, FloatLanes high) {
    const FloatLanes raised = lanes > low ? lanes : low;
    return raised < high ? raised : high;
}

} // namespace korvane
