#include "render/software/DepthOrder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace korvane {

namespace {

constexpr unsigned digitBits = 11;
constexpr std::size_t digitValues = std::size_t{1} << digitBits;

std::size_t digit(const DepthKey& key, unsigned pass) {
    return key.order >> (pass * digitBits) & (digitValues - 1);
}

} // namespace

void orderFarToNear(std::vector<DepthKey>& keys, std::vector<DepthKey>& scratch) {
    constexpr std::size_t few = 64; // below this a comparison sort is faster
    if (keys.size() < few) {
        std::sort(keys.begin(), keys.end(), [](const DepthKey& a, const DepthKey& b) {
            return a.order != b.order ? a.order < b.order : a.index < b.index;
        });
        return;
    }
    scratch.resize(keys.size(), DepthKey(0, 0));
    for (unsigned pass = 0; pass < 3; ++pass) {
        std::array<std::size_t, digitValues> places{};
        for (const DepthKey& key : keys) {
            ++places[digit(key, pass)];
        }
        std::size_t place = 0;
        for (std::size_t& entry : places) {
            place += std::exchange(entry, place);
        }
        for (const DepthKey& key : keys) {
            scratch[places[digit(key, pass)]++] = key;
        }
        keys.swap(scratch);
    }
}

} // namespace korvane
