#include "edit/session/ViewSentence.h"

#include "edit/session/StatusText.h"
#include "model/document/RenderCursor.h"
#include "model/records/ModelText.h"
#include "render/math/VectorMath.h"
#include "render/scene/NothingShown.h"

#include <array>
#include <numbers>

namespace korvane {

namespace {

QString drawnAs(RenderMode mode) {
    switch (mode) {
    case RenderMode::Wireframe:
        return QStringLiteral("in wireframe");
    case RenderMode::FlatShading:
        return QStringLiteral("in flat shading");
    case RenderMode::SmoothShading:
        break;
    }
    return QStringLiteral("in smooth shading");
}

QString degrees(float angle) {
    return QString::number(qRound(double{angle} * 180.0 / std::numbers::pi)) + u'\u00b0';
}

/// The origin of the selected frame in world space.
Vec3 selectedOrigin(const ModelDocument& document) {
    RenderCursor cursor;
    cursor.CursorPath = document.Selected.Frame.value_or(FramePath()).childNumbers();
    cursor.CursorDepth = static_cast<std::int32_t>(cursor.CursorPath.size());
    return VectorMatrix({}, cursor.GetFrameMatrix(document.Root));
}

} // namespace

QString planeSentence(const ModelDocument& document, const PlaneMapping& mapping) {
    constexpr std::array<const char*, planeCount> planes = {"XY", "XZ", "ZY"};
    QString text = QStringLiteral("The model in the %1 plane, %2 pixels to a unit")
                       .arg(QLatin1String(planes[static_cast<std::size_t>(mapping.plane)]))
                       .arg(double{mapping.scale}, 0, 'g', 3);
    if (const FrameRecord* frame = document.selectedFrame()) {
        text += QStringLiteral("; frame %1 is at %2")
                    .arg(shortName(shownText(frame->Name)),
                         placeText(mapping, selectedOrigin(document)));
    }
    return text + u'.';
}

QString spaceSentence(const ModelDocument& document, const ViewState& state) {
    QString text = whyNothingShows(document, state);
    if (!text.isEmpty()) {
        return text;
    }
    text = QStringLiteral("The model %1, from %2 units away, pitch %3, yaw %4")
               .arg(drawnAs(state.mode))
               .arg(double{document.CameraDistance} / double{state.scaleFactor}, 0, 'g', 3)
               .arg(degrees(state.angles.pitch), degrees(state.angles.yaw));
    if (const FrameRecord* frame = document.selectedFrame()) {
        text += QStringLiteral("; frame %1 is selected").arg(shortName(shownText(frame->Name)));
    }
    return text + u'.';
}

} // namespace korvane
