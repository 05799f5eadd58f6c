#include "formats/FileNames.h"

#include <algorithm>

namespace korvane {

QString upperExtension(const QString& fileName) {
    const qsizetype folder = std::max(fileName.lastIndexOf(u'/'), fileName.lastIndexOf(u'\\'));
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot > folder ? fileName.mid(dot).toUpper() : QString();
}

bool isTextModelName(const QString& fileName) {
    const QString extension = upperExtension(fileName);
    return extension == QLatin1String(".XSI") || extension == QLatin1String(".X");
}

} // namespace korvane
