#include "formats/check/ModelCheck.h"

#include "formats/check/MeshCheck.h"
#include "formats/check/ReadingCheck.h"
#include "formats/check/SaveCheck.h"
#include "formats/check/TextLines.h"
#include "formats/check/TextureCheck.h"
#include "model/records/ModelText.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <string>
#include <utility>

namespace korvane {

namespace {

/// Returns why a file with this headerText() is refused.
QString refusalOf(const QString& header) {
    if (header.isEmpty()) {
        return {};
    }
    const bool xsi = header.startsWith(QLatin1String("dotXSI"));
    const QString version = xsi ? QStringLiteral("0101") : QStringLiteral("0302");
    const bool isText = !header.contains(QLatin1String("compressed"));
    const QString read = isText && header.endsWith(QLatin1String(" text")) ? version
                         : isText && header.contains(QLatin1String(" text "))
                             ? version + QLatin1String(xsi ? " text 0032" : " text 0032 or 0064")
                             : version + QLatin1String(" text");
    return QStringLiteral("%1: only %2 is read").arg(header, read);
}

/// Describes the header of a model for people: "DirectX 0303 text". Returns an empty text for an
/// unknown kind.
QString headerText(std::string_view bytes) {
    const std::string header = folded(bytes.substr(0, 16));
    const std::string_view all = header;
    const bool xsi = all.starts_with("xsi ");
    if (header.size() < 16 || !(xsi || all.starts_with("xof "))) {
        return {};
    }
    const std::string_view version = all.substr(4, 4);
    if (version.find_first_not_of("0123456789") != std::string_view::npos) {
        return {};
    }
    constexpr std::pair<std::string_view, const char*> kinds[] = {
        {"txt ", "text"},
        {"bin ", "binary"},
        {"tzip", "compressed text"},
        {"bzip", "compressed binary"},
        {"com ", "compressed"},
    };
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&](const auto& row) { return row.first == all.substr(8, 4); });
    if (kind == std::end(kinds)) {
        return {};
    }
    QString text = QLatin1String(xsi ? "dotXSI " : "DirectX ") +
                   QString::fromStdString(std::string(version)) + u' ' +
                   QLatin1String(kind->second);
    // the width of numbers matters only if it is the reason
    const bool read = kind == std::begin(kinds) && version == (xsi ? "0101" : "0302");
    return read ? text + u' ' + shownText(all.substr(12, 4)) : text;
}

} // namespace

ModelCheck checkModel(std::string_view bytes, const CheckRequest& request) {
    ModelCheck check;
    try {
        ReadNotes notes;
        check.status = readXsi(TextScanner(bytes), check.document, {}, &notes);
        if (check.status != ReadStatus::Done) {
            check.refusal =
                check.status == ReadStatus::NotValid ? refusalOf(headerText(bytes)) : QString();
            return check;
        }
        FindingList findings(bytes);
        const ReadPlaces places = checkReading(bytes, notes, check.document, findings);
        checkSaving(check.document, places, findings);
        if (request.hazards) {
            checkMeshes(check.document, places, findings);
        }
        if (request.textures != nullptr) {
            checkTextures(check.document, places, *request.textures, findings);
        }
        check.findings = findings.finish();
        return check;
    } catch (const std::exception&) {
        check = ModelCheck(); // out of memory
        check.status = ReadStatus::CannotOpen;
        return check;
    }
}

} // namespace korvane
