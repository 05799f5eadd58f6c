#pragma once

#include "edit/history/EditHistory.h"

#include <cstdint>
#include <functional>
#include <random>

namespace korvane::test {

/// Makes random edits of every kind as the windows would, including ones with nothing to work on.
class RandomEdits {
  public:
    RandomEdits(ModelDocument& document, EditHistory& history, std::uint32_t seed)
        : document_(document), history_(history), random_(seed) {}

    using Edit = std::function<void()>;

    /// Makes an edit of any kind.
    void make() { make(static_cast<EditKind>(number(1, 23))); }
    void make(EditKind kind) { prepare(kind)(); }
    /// Chooses an edit and returns a function that records it, any number of times. Changes that a
    /// user makes before the record are already made.
    Edit prepare(EditKind kind);

  private:
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    float real() { return static_cast<float>(number(-1000, 1000)) / 8.0F; }
    ColorRGB color() { return {real(), real(), real()}; }
    std::size_t anyMaterial();
    FramePath anyFrame();
    std::vector<MaterialRecord> someMaterials();
    Edit ofMaterial(EditKind kind);
    Edit ofFrame(EditKind kind);
    Edit texCoordDrag(const FramePath& path);

    ModelDocument& document_;
    EditHistory& history_;
    std::mt19937 random_;
};

} // namespace korvane::test
