#include "formats/files/FileNames.h"

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

ModelFileKind modelFileKind(const QString& fileName) {
    const QString extension = upperExtension(fileName);
    return extension == QLatin1String(".XSI")   ? ModelFileKind::Xsi
           : extension == QLatin1String(".X")   ? ModelFileKind::DirectX
           : extension == QLatin1String(".MSH") ? ModelFileKind::Msh
                                                : ModelFileKind::None;
}

QString folderOf(const QString& fileName) {
    return fileName.left(fileName.lastIndexOf(u'/') + 1);
}

QString offeredName(const QString& fileName) {
    QString name = fileName.mid(fileName.lastIndexOf(u'/') + 1);
    const ModelFileKind kind = modelFileKind(name);
    if (kind == ModelFileKind::Xsi) {
        return name;
    }
    const qsizetype extension = kind == ModelFileKind::None ? 0 : upperExtension(name).size();
    return name.chopped(extension) + QLatin1String(".xsi");
}

} // namespace korvane
