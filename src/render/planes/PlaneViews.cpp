#include "render/planes/PlaneViews.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvane {

namespace {

/// The coordinates that the plane shows, in so many decimals: "x 1.25  y -3.50".
QString coordinates(ViewPlane plane, const Vec3& p, int decimals) {
    const auto shown = [decimals](const char* axis, float value) {
        const QString number = QString::number(double{value}, 'f', decimals);
        // what rounds to nothing has no sign
        const bool zero = number.toDouble() == 0.0;
        return QLatin1String(axis) + u' ' + (zero ? QString::number(0.0, 'f', decimals) : number);
    };
    switch (plane) {
    case ViewPlane::XZ:
        return shown("x", p.x) + QStringLiteral("  ") + shown("z", p.z);
    case ViewPlane::ZY:
        return shown("z", p.z) + QStringLiteral("  ") + shown("y", p.y);
    case ViewPlane::XY:
        break;
    }
    return shown("x", p.x) + QStringLiteral("  ") + shown("y", p.y);
}

QString progressText(ViewPlane plane, const DragProgress& progress, int decimals) {
    switch (progress.tool) {
    case ViewTool::MoveFrame:
        return QStringLiteral("frame moved ") + coordinates(plane, progress.moved, decimals);
    case ViewTool::MoveView:
        return QStringLiteral("view moved ") + coordinates(plane, progress.moved, decimals);
    case ViewTool::MoveObjCoords:
        return QStringLiteral("camera center moved ") +
               coordinates(plane, progress.moved, decimals);
    case ViewTool::RotateFrame: {
        const double degrees = double{progress.turned} * 180.0 / std::numbers::pi;
        return QStringLiteral("frame turned %1\u00b0").arg(degrees, 0, 'f', 1);
    }
    case ViewTool::Zoom:
        break;
    }
    return {};
}

} // namespace

void PlaneViews::setColors(const PlaneColors& colors) {
    for (Controller& controller : controllers_) {
        controller.view.setColors(colors);
    }
}

void PlaneViews::mouseDown(ViewPlane plane, const DragInput& input, ModelDocument& document) {
    cancelOthers(plane, document);
    Controller& controller = of(plane);
    controller.drag.begin(input, controller.view.mapping(document), document);
}

void PlaneViews::mouseMove(ViewPlane plane, const DragInput& input, ModelDocument& document) {
    Controller& controller = of(plane);
    controller.drag.update(input, controller.view.mapping(document), document);
}

std::optional<FrameMove> PlaneViews::mouseUp(ViewPlane plane, const DragInput& input,
                                             ModelDocument& document) {
    cancelOthers(plane, document);
    Controller& controller = of(plane);
    return controller.drag.end(input, controller.view.mapping(document), document);
}

void PlaneViews::wheel(ViewPlane plane, const DragInput& input, float notches,
                       ModelDocument& document) {
    if (dragging()) {
        return;
    }
    const float zoomed = zoomedScale(document.PlaneScale, wheelFactor(notches));
    if (zoomed == document.PlaneScale) {
        return;
    }
    PlaneMapping mapping = of(plane).view.mapping(document);
    const PlanePoint before = mapping.under(input.x, input.y);
    mapping.scale = zoomed;
    const PlanePoint after = mapping.under(input.x, input.y);
    document.PlaneScale = zoomed;
    document.PanVector =
        document.PanVector + toWorld(plane, {after.u - before.u, after.v - before.v});
    document.RedrawAll = true;
}

bool PlaneViews::cancelDrag(ModelDocument& document) {
    const bool running = dragging();
    for (Controller& controller : controllers_) {
        controller.drag.cancel(document);
    }
    return running;
}

bool PlaneViews::dragging() const {
    return std::any_of(controllers_.begin(), controllers_.end(),
                       [](const Controller& controller) { return controller.drag.active(); });
}

void PlaneViews::cancelOthers(ViewPlane plane, ModelDocument& document) {
    for (Controller& controller : controllers_) {
        if (controller.view.plane() != plane) {
            controller.drag.cancel(document);
        }
    }
}

QString PlaneViews::statusText(ViewPlane plane, const DragInput& input,
                               const ModelDocument& document) const {
    const Controller& controller = of(plane);
    // as many decimals as a pixel is worth, for the tiniest models as well
    constexpr int most = 30;
    const int decimals =
        std::clamp(static_cast<int>(std::ceil(std::log10(document.PlaneScale))), 0, most);
    const PlanePoint under = controller.view.mapping(document).under(input.x, input.y);
    QString text = coordinates(plane, toWorld(plane, under), decimals);
    if (const std::optional<DragProgress> progress = controller.drag.progress()) {
        text += QStringLiteral("   ") + progressText(plane, *progress, decimals);
    }
    return text;
}

} // namespace korvane
