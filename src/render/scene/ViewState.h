#pragma once

#include "model/records/FrameRecord.h"
#include "render/math/VectorMath.h"
#include "render/picture/Bitmap.h"

#include <cstdint>
#include <optional>

namespace korvane {

/// The renderer of the 3D view. No command sets Direct3D; it draws as Software.
enum class DrawApi : std::int32_t { Software = 0, OpenGL = 1, Direct3D = 2 };

/// How the 3D view draws faces.
enum class RenderMode : std::int32_t { Wireframe = 0, FlatShading = 1, SmoothShading = 2 };

/// Pi for all angles of the 3D view: deliberately the next single-precision value below.
inline constexpr float viewPi = 3.1415925F;

/// The camera's rotation about the point it looks at, in radians.
struct CameraAngles {
    float pitch = 0.574F;
    float yaw = 4.168F;
    float roll = 0.0F;

    bool operator==(const CameraAngles&) const = default;
};

/// The colours of the 3D view; a frame's select state chooses the wire colour.
struct ViewColors {
    BitmapPixel background = 0xff000000U;
    BitmapPixel selected = 0xffff0000U;
    BitmapPixel selectedChild = 0xff00ff00U;
    BitmapPixel unselected = 0xff0000ffU;
};

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

/// The colours of the 2D views.
struct PlaneColors {
    /// The background, and the lines of frames by their select state.
    ViewColors frames{.background = 0xffffffffU};
    BitmapPixel worldAxes = 0xff008080U;    ///< teal
    BitmapPixel objectAxes = 0xffffff00U;   ///< yellow: the mark of the selected frame's origin
    BitmapPixel unused = 0xff808000U;       ///< olive: nothing is drawn with it yet
    BitmapPixel cameraCentre = 0xff800080U; ///< purple
};

/// The settings of a 3D view, shared by both renderers.
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
    /// The model is drawn larger by this factor about the camera centre, and the camera distance is
    /// measured after scaling. Lighting ignores it.
    float scaleFactor = 1.0F;
    /// Draw faces whose product of projected edges, in pixels, is below this.
    std::int32_t backFaceThreshold = -6;
};

} // namespace korvane
