#include "tool/RenderRequest.h"

#include <QColor>

#include <cmath>

namespace korvane::tool {

namespace {

/// Parses a colour by name or as "#rrggbb"; "none" means no background.
BitmapPixel backgroundOf(const CommandLine& line) {
    const QString text = line.value("background");
    if (text == QLatin1String("none")) {
        return RenderRequest::noBackground;
    }
    const QColor color(text);
    if (!color.isValid() || color.alpha() != 255) {
        line.refuseValue("background");
    }
    return color.rgb();
}

/// Reads the view and its background.
void readView(const CommandLine& line, RenderRequest& request) {
    const auto view = line.choice("view", {QStringLiteral("3d"), QStringLiteral("xy"),
                                           QStringLiteral("xz"), QStringLiteral("zy")});
    if (view.value_or(0) > 0) {
        request.plane = viewPlanes[*view - 1];
        line.forbid(
            {"api", "mode", "pitch", "yaw", "distance", "no-transparent", "no-hidden-transparent"},
            QStringLiteral("cannot be used with a 2D view"));
    }
    request.background = line.isSet("background") ? backgroundOf(line)
                         : request.plane          ? PlaneColors().frames.background
                                                  : ViewColors().background;
    request.state.colors.background = request.background;
}

void readSize(const CommandLine& line, RenderRequest& request) {
    constexpr float largest = 8192.0F;
    const std::vector<float> size = line.numbers("size", 2, u'x');
    for (const float side : size) {
        if (side < 1 || side > largest || side != std::floor(side)) {
            line.refuseValue("size");
        }
    }
    if (!size.empty()) {
        request.width = static_cast<std::int32_t>(size[0]);
        request.height = static_cast<std::int32_t>(size[1]);
    }
}

void readCamera(const CommandLine& line, RenderRequest& request) {
    CameraAngles& angles = request.state.angles;
    angles.pitch = line.angle("pitch").value_or(angles.pitch);
    angles.yaw = line.angle("yaw").value_or(angles.yaw);
    request.distance = line.number("distance");
    if (request.distance.value_or(0) < 0) {
        line.refuseValue("distance");
    }
    if (const auto centre = line.numbers("center", 3, u','); !centre.empty()) {
        request.centre = Vec3{centre[0], centre[1], centre[2]};
    }
}

} // namespace

void addRenderOptions(CommandLine& line) {
    line.addValue("view", "VIEW", "3d, or xy, xz or zy for a 2D view. The default is 3d.");
    line.addValue("size", "WxH", "Size in pixels, up to 8192 per side. The default is 1024x768.");
    line.addValue(
        "background", "COLOR",
        "A colour by name or as #rrggbb, or \"none\": then pixels that nothing covers are "
        "transparent. The default is black in 3D and white in 2D.");
    line.addValue("mode", "MODE", "wireframe, flat or smooth; 3D only. The default is smooth.");
    line.addValue("api", "API", "software or opengl; 3D only. The default is software.");
    line.addValue("pitch", "ANGLE",
                  "Tilt of the camera, in radians or with a unit: 30deg or 0.5rad; 3D only.");
    line.addValue("yaw", "ANGLE",
                  "Turn of the camera around the model, given like --pitch; 3D only.");
    line.addValue("distance", "D",
                  "Distance of the camera from the point it looks at, in model units; 3D only.");
    line.addValue("center", "X,Y,Z",
                  "The point the camera looks at, in model units. A 2D view marks it.");
    line.addFlag("no-transparent", "Draw all materials opaque; 3D only.");
    line.addFlag("no-hidden-transparent",
                 "Do not draw the far sides of translucent meshes; 3D only.");
    line.addFlag("strict", "Write nothing if the file ends early, or a 3D picture would be empty.");
}

RenderRequest renderRequest(const CommandLine& line) {
    RenderRequest request;
    const auto api = line.choice("api", {QStringLiteral("software"), QStringLiteral("opengl")});
    request.state.api = api.value_or(0) == 0 ? DrawApi::Software : DrawApi::OpenGL;
    if (const auto mode = line.choice("mode", {QStringLiteral("wireframe"), QStringLiteral("flat"),
                                               QStringLiteral("smooth")})) {
        request.state.mode = static_cast<RenderMode>(*mode);
    }
    readView(line, request);
    readSize(line, request);
    readCamera(line, request);
    request.state.allowTransparent = !line.isSet("no-transparent");
    request.state.showHiddenTransparent = !line.isSet("no-hidden-transparent");
    request.strict = line.isSet("strict");
    return request;
}

} // namespace korvane::tool
