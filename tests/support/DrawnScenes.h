#pragma once

#include "support/Scene.h"
#include "support/Skip.h"

#include <ostream>

namespace korvane::test {

/// A renderer that draws the scenes.
struct Renderer {
    const char* name;
    Draw (*start)(); ///< returns an empty function if the machine cannot
    float farthest;  ///< the largest coordinate that is drawn
};

inline std::ostream& operator<<(std::ostream& out, const Renderer& renderer) {
    return out << renderer.name;
}

/// What all renderers must show alike. A test program compiles DrawnScenes.cpp and instantiates the
/// suite with its renderer.
class DrawnScenes : public testing::TestWithParam<Renderer> {
  protected:
    void SetUp() override {
        draw = GetParam().start();
        if (!draw) {
            KORVANE_SKIP("no OpenGL here");
        }
    }

    Draw draw;
};

} // namespace korvane::test
