#pragma once

#include "render/drags/ViewPlane.h"
#include "render/scene/ViewState.h"
#include "tool/CommandLine.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace korvane::tool {

/// The pictures requested; unset values are left to the start camera.
struct RenderRequest {
    QString base;
    ViewState state;
    std::int32_t width = 1024;
    std::int32_t height = 768;
    std::optional<float> distance;
    std::optional<Vec3> centre;
    std::optional<int> repeat;
    std::optional<ViewPlane> plane; ///< the 2D view to draw instead of the 3D one
    /// With noBackground, pixels that nothing covers are transparent.
    BitmapPixel background = 0;
    bool strict = false; ///< refuses files that end early and empty pictures

    static constexpr BitmapPixel noBackground = 0;
};

void addRenderOptions(CommandLine& line);
/// Converts the options to a request. Throws WrongCall.
RenderRequest renderRequest(const CommandLine& line);

} // namespace korvane::tool
