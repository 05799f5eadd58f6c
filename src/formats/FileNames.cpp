#include "formats/FileNames.h"

#include <QFile>

#include <algorithm>

namespace korvane {

QStringList commandLineWords(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words.push_back(QFile::decodeName(argv[i]));
    }
    return words;
}

QString upperExtension(const QString& fileName) {
    const qsizetype folder = std::max(fileName.lastIndexOf(u'/'), fileName.lastIndexOf(u'\\'));
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot > folder ? fileName.mid(dot).toUpper() : QString();
}

bool isTextModelName(const QString& fileName) {
    const QString extension = upperExtension(fileName);
    return extension == QLatin1String(".XSI") || extension == QLatin1String(".X");
}

bool isModelName(const QString& fileName) {
    return isTextModelName(fileName) || upperExtension(fileName) == QLatin1String(".MSH");
}

QString folderOf(const QString& fileName) {
    return fileName.left(fileName.lastIndexOf(u'/') + 1);
}

QString offeredName(const QString& fileName) {
    QString name = fileName.mid(fileName.lastIndexOf(u'/') + 1);
    const QString extension = upperExtension(name);
    if (extension == QLatin1String(".XSI")) {
        return name;
    }
    return name.chopped(isModelName(name) ? extension.size() : 0) + QLatin1String(".xsi");
}

} // namespace korvane
