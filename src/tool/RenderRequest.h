#pragma once

#include "render/drags/ViewPlane.h"
#include "render/scene/ViewState.h"
#include "tool/CommandLine.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace korvane::tool {

/// The pictures asked for; what was not asked for is left to the start camera.
struct RenderRequest {
    QString base;
    ViewState state;
    std::int32_t width = 1024;
    std::int32_t height = 768;
    std::optional<float> distance;
    std::optional<Vec3> centre;
    std::optional<int> repeat;
    std::optional<ViewPlane> plane; ///< of a 2D view instead of the 3D one
    /// Of the picture; noBackground leaves pixels that nothing covers transparent.
    BitmapPixel background = 0;

    static constexpr BitmapPixel noBackground = 0;
};

void addRenderOptions(CommandLine& line);
/// Turns the options into a request. Throws WrongCall.
RenderRequest renderRequest(const CommandLine& line);

} // namespace korvane::tool
