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

/// Queries the driver through a context like the one that the 3D view draws with. Returns nothing
/// if OpenGL is missing.
std::optional<GlInfo> probeGl();

} // namespace korvane
