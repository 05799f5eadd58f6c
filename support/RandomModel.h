#pragma once

#include "model/document/ModelDocument.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// Gives a number between two others, which may come as well.
using NumberSource = std::function<int(int least, int most)>;

/// The numbers of a generator with that seed.
NumberSource seededNumbers(std::uint32_t seed);

/// What a random model may hold.
enum class RandomContent {
    Savable, ///< every kind of content that comes back unchanged when it is saved and read
    Any      ///< also lists that do not fit each other, numbers that are none, and pictures
};

/// Builds models of the numbers that a source gives.
class RandomModel {
  public:
    /// A savable model, whose frames stand up to `deepest` below the root.
    explicit RandomModel(std::uint32_t seed, int deepest = 4)
        : RandomModel(seededNumbers(seed), RandomContent::Savable, deepest) {}
    RandomModel(NumberSource numbers, RandomContent content, int deepest)
        : number(std::move(numbers)), any_(content == RandomContent::Any), deepest_(deepest) {}

    ModelDocument make();

    // parts of it, and what else goes with such a model
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
