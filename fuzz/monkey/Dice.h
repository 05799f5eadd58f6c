#pragma once

#include <QList>
#include <QStringList>

#include <cstdint>
#include <random>

namespace korvane::monkey {

/// The randomness of a story. Equal seeds give equal numbers on every machine, which the
/// distributions of the standard library do not guarantee.
class Dice {
  public:
    explicit Dice(std::uint32_t seed) : random_(seed) {}

    /// Returns a number from 0 up to, but not including, `end`, which is at least 1.
    int below(int end) {
        return static_cast<int>(random_() % static_cast<std::mt19937::result_type>(end));
    }
    int between(int least, int most) { return least + below(most - least + 1); }
    bool chance(int percent) { return below(100) < percent; }
    /// Returns an element of a list that is not empty.
    template <class List>
    auto& of(const List& list) {
        return *(std::begin(list) + below(static_cast<int>(std::size(list))));
    }

  private:
    std::mt19937 random_;
};

} // namespace korvane::monkey
