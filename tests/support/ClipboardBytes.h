#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace korvane::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes blockBytes(const QByteArray& block) {
    return {block.begin(), block.end()};
}

inline std::int32_t wordAt(const Bytes& block, std::size_t offset) {
    std::uint32_t word = 0;
    for (std::size_t i = 4; i > 0; --i) {
        word = word << 8U | block.at(offset + i - 1);
    }
    return static_cast<std::int32_t>(word);
}

inline void setWord(Bytes& block, std::size_t offset, std::int32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        block.at(offset + i) =
            static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> 8 * i);
    }
}

/// Returns a seed file of the fuzzers; empty if there is none of that name.
inline Bytes seedFile(const std::string& name) {
    std::ifstream file(KORVANE_SEEDS "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace korvane::test
