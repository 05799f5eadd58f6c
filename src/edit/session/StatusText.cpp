#include "edit/session/StatusText.h"

#include "formats/xsi/FrameNames.h"
#include "model/document/ModelCounts.h"
#include "model/records/FrameWalk.h"
#include "model/records/ModelText.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace korvane {

namespace {

/// "; not found: rock.tga, sail.pic and 2 more", or nothing without names.
QString listed(const char* what, const QStringList& names) {
    constexpr qsizetype most = 2;
    if (names.isEmpty()) {
        return {};
    }
    const QString first = names.first(std::min(names.size(), most)).join(QStringLiteral(", "));
    const qsizetype more = names.size() - most;
    return QStringLiteral("; %1: %2").arg(QLatin1String(what), first) +
           (more > 0 ? QStringLiteral(" and %1 more").arg(more) : QString());
}

QStringList shown(const std::vector<std::string>& names) {
    QStringList texts;
    for (const std::string& name : names) {
        texts += shortName(shownText(name));
    }
    return texts;
}

/// The names, quoted and each once, that would not survive saving and reading.
QStringList lostNames(const FrameRecord& root) {
    QStringList lost;
    std::unordered_set<std::string_view> known;
    NameUses uses;
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        const std::string& name = walk.frame().Name;
        if (!lostNameReason(name, uses.next(walk.frame(), walk.depth() == 0)).isEmpty() &&
            known.insert(name).second) {
            lost += u'"' + shortName(shownText(name)) + u'"';
        }
    }
    return lost;
}

QString plainName(const QString& fileName) {
    return shortName(fileName.section(u'/', -1));
}

/// "; another program's save is kept as ship.xsi~", or nothing without one.
QString otherSaveText(const OtherSave& other) {
    switch (other.fate) {
    case OtherSave::Fate::Kept:
        return QStringLiteral("; another program's save is kept as ") + plainName(other.keptAs);
    case OtherSave::Fate::NotKept:
        return QStringLiteral("; another program's save could not be kept");
    case OtherSave::Fate::None:
        break;
    }
    return {};
}

/// The coordinates that the plane shows, to a number of decimals: "x 1.25  y -3.50".
QString coordinates(ViewPlane plane, const Vec3& p, int decimals) {
    const auto shown = [decimals](const char* axis, float value) {
        const QString number = QString::number(double{value}, 'f', decimals);
        // no "-0.00"
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

/// As many decimals as a pixel resolves, even for the tiniest models.
int decimalsOf(const PlaneMapping& mapping) {
    constexpr int most = 30;
    return std::clamp(static_cast<int>(std::ceil(std::log10(mapping.scale))), 0, most);
}

} // namespace

QString shortName(const QString& name) {
    constexpr qsizetype longest = 48;
    constexpr qsizetype kept = longest / 2 - 1;
    const QString line = name.simplified();
    return line.size() <= longest ? line : line.first(kept) + u'…' + line.last(kept);
}

QString placeText(const PlaneMapping& mapping, const Vec3& place) {
    return coordinates(mapping.plane, place, decimalsOf(mapping));
}

QString countsText(const ModelDocument& document) {
    return QString::fromStdString(summary(countModel(document.Root)));
}

QString openedText(const ModelDocument& document, const UnseenTextures& unseen) {
    return countsText(document) + listed("not found", shown(unseen.notFound)) +
           listed("not shown", shown(unseen.notShown));
}

QString undoneText(std::string_view change) {
    return QStringLiteral("Undone: ") + shownText(change);
}

QString redoneText(std::string_view change) {
    return QStringLiteral("Redone: ") + shownText(change);
}

QString recoveredText(const ModelDocument& document, const UnseenTextures& unseen) {
    return QStringLiteral("Recovered, and not saved yet: ") + openedText(document, unseen);
}

QString savedText(const ModelDocument& document, SaveResult result, const OtherSave& other) {
    const QString name = plainName(document.FileName);
    switch (result) {
    case SaveResult::NotWritten:
        return QStringLiteral("Nothing was written: %1 is not a dotXSI file").arg(name);
    case SaveResult::Failed:
        return QStringLiteral("Nothing was written: unable to save %1").arg(name) +
               otherSaveText(other);
    case SaveResult::Written:
        break;
    }
    return QStringLiteral("%1 was written: ").arg(name) + countsText(document) +
           otherSaveText(other) +
           listed("frames that it will not fully restore", lostNames(document.Root));
}

QString toolHint(ViewTool tool) {
    const char* left = "";
    switch (tool) {
    case ViewTool::Zoom:
        return QStringLiteral("left button: double the scale; right button: halve it; wheel: zoom");
    case ViewTool::MoveFrame:
        left = "move the selected frame";
        break;
    case ViewTool::MoveView:
        left = "pan the views";
        break;
    case ViewTool::RotateFrame:
        left = "turn the selected frame";
        break;
    case ViewTool::MoveObjCoords:
        left = "move the point that the 3D view looks at";
        break;
    }
    return QStringLiteral("left button: %1; wheel: zoom").arg(QLatin1String(left));
}

QString movedText(const PlaneMapping& mapping, const DragProgress& progress) {
    QString text = progressText(mapping.plane, progress, decimalsOf(mapping));
    return text.isEmpty() ? text : text.replace(0, 1, text[0].toUpper());
}

QString pointerText(const PlaneMapping& mapping, const DragInput& input,
                    const std::optional<DragProgress>& progress, ViewTool tool) {
    const PlanePoint under = mapping.under(input.x, input.y);
    return placeText(mapping, toWorld(mapping.plane, under)) + QStringLiteral("   ") +
           (progress ? progressText(mapping.plane, *progress, decimalsOf(mapping))
                     : toolHint(tool));
}

} // namespace korvane
