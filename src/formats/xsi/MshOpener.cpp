#include "formats/xsi/MshOpener.h"

#include "formats/xsi/XsiWriter.h"

#include <QFile>
#include <QFileInfo>

namespace korvane {

MshOutcome FileOpenMSH(const QString& fileName, ModelDocument& document) {
    if (!QFileInfo::exists(fileName)) {
        return {ReadStatus::Missing, {}};
    }
    document.NeverSaved = true;
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly)) {
        document.FileName = QStringLiteral("Untitled");
        return {ReadStatus::CannotOpen, {}};
    }
    const QString loaded = QStringLiteral("loaded.xsi");
    return {ReadStatus::Done, SaveFileXSI(document, loaded) ? QString() : loaded};
}

} // namespace korvane
