#pragma once

#include <QString>

#include <optional>

namespace korvane {

/// What the OpenGL driver says about itself.
struct GlInfo {
    QString vendor;
    QString renderer;
    QString version;
};

/// Asks the driver through a context of the kind that the 3D view draws with, off the screen.
/// Nothing where there is no OpenGL.
std::optional<GlInfo> probeGl();

} // namespace korvane
