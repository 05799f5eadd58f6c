#pragma once

#include "model/records/FrameRecord.h"
#include "render/math/VectorMath.h"
#include "render/picture/Bitmap.h"

#include <cstdint>
#include <optional>

namespace korvane {

/// What the 3D view draws through. Direct3D can be set but no command does; it draws as Software.
enum class DrawApi : std::int32_t { Software = 0, OpenGL = 1, Direct3D = 2 };

/// How the 3D view draws faces.
enum class RenderMode : std::int32_t { Wireframe = 0, FlatShading = 1, SmoothShading = 2 };

/// Pi as the 3D view takes it for all its angles: deliberately the single-precision value just
/// below.
inline constexpr float viewPi = 3.1415925F;

/// How the camera is turned about the point it looks at, in radians.
struct CameraAngles {
    float pitch = 0.574F;
    float yaw = 4.168F;
    float roll = 0.0F;

    bool operator==(const CameraAngles&) const = default;
};

/// The colours that the 3D view draws with; the wire colours go by a frame's select state.
struct ViewColors {
    BitmapPixel background = 0xff000000U;
    BitmapPixel selected = 0xffff0000U;
    BitmapPixel selectedChild = 0xff00ff00U;
    BitmapPixel unselected = 0xff0000ffU;
};

/// The wire colour of a frame by how it stands to the selected one.
inline BitmapPixel wireColor(const ViewColors& colors, SelectState state) {
    switch (state) {
    case SelectState::Selected:
        return colors.selected;
    case SelectState::Descendant:
        return colors.selectedChild;
    case SelectState::Other:
        break;
    }
    return colors.unselected;
}

/// The colours that the 2D views draw with.
struct PlaneColors {
    /// The background, and the lines of frames by their select state.
    ViewColors frames{.background = 0xffffffffU};
    BitmapPixel worldAxes = 0xff008080U;    ///< teal
    BitmapPixel objectAxes = 0xffffff00U;   ///< yellow: the mark of the selected frame's origin
    BitmapPixel unused = 0xff808000U;       ///< olive: nothing is drawn with it yet
    BitmapPixel cameraCentre = 0xff800080U; ///< purple
};

/// The settings of a 3D view, shared by both ways of drawing.
struct ViewState {
    DrawApi api = DrawApi::OpenGL;
    RenderMode mode = RenderMode::SmoothShading;
    /// The mode of the last redraw, none before the first.
    std::optional<RenderMode> lastDrawnMode;
    bool dots = false;
    bool allowTransparent = true;      ///< "Allow Transparent"
    bool showHiddenTransparent = true; ///< "Show Hidden Transparent"
    CameraAngles angles;
    Vec3 light = {0, 0, -1}; ///< the direction to the light, in view space
    Vec3 eye = {0, 0, -1};   ///< the direction to the eye, in view space
    ViewColors colors;
    /// How much larger than in the model everything shows, about the camera centre; the camera
    /// distance is in what comes out. Lighting knows nothing of it.
    float scaleFactor = 1.0F;
    /// Faces are drawn when the product of their projected edges, in pixels, is below this.
    std::int32_t backFaceThreshold = -6;
};

} // namespace korvane
