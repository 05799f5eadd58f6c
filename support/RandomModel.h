#pragma once

#include "model/document/ModelDocument.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// Returns a number from `least` to `most`, both included.
using NumberSource = std::function<int(int least, int most)>;

/// Returns the numbers of a generator with this seed.
NumberSource seededNumbers(std::uint32_t seed);

/// What a random model may hold.
enum class RandomContent {
    Savable, ///< all content that survives saving and reading unchanged
    Any      ///< also lists that do not match, numbers that are not finite, and pictures
};

/// Builds models from the numbers of a source.
class RandomModel {
  public:
    /// Builds savable models whose frames nest up to `deepest` below the root.
    explicit RandomModel(std::uint32_t seed, int deepest = 4)
        : RandomModel(seededNumbers(seed), RandomContent::Savable, deepest) {}
    RandomModel(NumberSource numbers, RandomContent content, int deepest)
        : number(std::move(numbers)), any_(content == RandomContent::Any), deepest_(deepest) {}

    ModelDocument make();

    // parts of a model, and other values that tests need with it
    bool chance(int percent) { return number(1, 100) <= percent; }
    float real();
    Vec3 vec3() { return {real(), real(), real()}; }

  private:
    float oddReal();
    float savableReal();
    ColorRGB color() { return {real(), real(), chance(50) ? 0.0F : real()}; }

    FrameRecord frame(int depth);
    void addViewState(FrameRecord& frame);
    MeshRecord mesh();
    MaterialRecord material();
    void addTexture(MaterialRecord& material);
    PolygonList polygons(std::size_t faces, std::size_t elements);
    template <class Element, class Make>
    void fill(std::vector<Element>& list, int most, Make make);
    std::vector<AnimationKeyRecord> keys();

    NumberSource number;
    bool any_;
    int deepest_;
    int frames_ = 0;
    int materials_ = 0;
};

} // namespace korvane::test
