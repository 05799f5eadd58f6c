#pragma once

#include "model/document/ModelDocument.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace korvane::test {

/// Builds models that survive saving and loading unchanged: every kind of content, but nothing
/// that the format deliberately loses (see the named exceptions in the round trip tests).
class RandomModel {
  public:
    /// Frames stand up to `deepest` below the root.
    explicit RandomModel(std::uint32_t seed, int deepest = 4) : random_(seed), deepest_(deepest) {}

    ModelDocument make();

  private:
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    bool chance(int percent) { return number(1, 100) <= percent; }
    float real();
    ColorRGB color();
    Vec3 vec3() { return {real(), real(), real()}; }

    FrameRecord frame(int depth);
    MeshRecord mesh();
    MaterialRecord material();
    std::string textureName();
    PolygonList polygons(std::size_t count);
    std::vector<AnimationKeyRecord> keys();

    std::mt19937 random_;
    int deepest_;
    int frames_ = 0;
    std::vector<MaterialRecord> table_;
};

} // namespace korvane::test
