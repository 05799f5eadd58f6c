#pragma once

#include "edit/history/EditHistory.h"

#include <cstdint>
#include <random>

namespace korvane::test {

/// Makes random edits of every kind, as the windows would make them, also such that find nothing to
/// work on.
class RandomEdits {
  public:
    RandomEdits(ModelDocument& document, EditHistory& history, std::uint32_t seed)
        : document_(document), history_(history), random_(seed) {}

    /// Makes an edit of any kind.
    void make() { make(static_cast<EditKind>(number(1, 23))); }
    void make(EditKind kind);

  private:
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    float real() { return static_cast<float>(number(-1000, 1000)) / 8.0F; }
    ColorRGB color() { return {real(), real(), real()}; }
    std::size_t anyMaterial();
    FramePath anyFrame();
    std::vector<MaterialRecord> someMaterials();
    void editMaterial(EditKind kind);
    void editFrame(EditKind kind);
    void dragTexCoords(const FramePath& path);

    ModelDocument& document_;
    EditHistory& history_;
    std::mt19937 random_;
};

} // namespace korvane::test
