#include "formats/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <exception>
#include <optional>

namespace korvane {

namespace {

/// Where the links that begin at a name lead; nothing when they lead round in a circle.
std::optional<QString> linkTarget(QString name) {
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        if (!QFileInfo(name).isSymbolicLink()) {
            return name;
        }
        // ".." in a link counts from where the folder of the link really is
        const QFileInfo folder(QFileInfo(name).path());
        name = QDir(folder.canonicalFilePath()).filePath(QFileInfo(name).fileName());
        name = QFileInfo(name).symLinkTarget();
    }
    return std::nullopt;
}

TextSink sinkOf(QIODevice& device) {
    return [&device](std::string_view piece) {
        const auto size = static_cast<qint64>(piece.size());
        return device.write(piece.data(), size) == size;
    };
}

bool writeAll(QFile& file, const QByteArray& bytes) {
    return file.seek(0) && file.write(bytes) == bytes.size() && file.resize(bytes.size());
}

/// Whether the folder of a file lets files be added.
bool takesNewFiles(const QString& fileName) {
    return QFileInfo(QFileInfo(fileName).path()).isWritable();
}

bool replaceOrThrow(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    const std::optional<QString> name = linkTarget(fileName);
    if (!name || (QFileInfo::exists(*name) && !QFileInfo(*name).isFile())) {
        return false;
    }
    QSaveFile file(*name);
    // Buffered, an error of the last flush would go unnoticed and a cut file would count as saved.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return !takesNewFiles(*name) && overwriteFile(*name, write);
    }
    if (!write(sinkOf(file))) {
        file.cancelWriting();
        return false;
    }
    // others' files in a shared folder may be written, but not replaced
    return file.commit() || (QFileInfo::exists(*name) && overwriteFile(*name, write));
}

bool overwriteOrThrow(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    // Both texts are in memory before the first byte of the file is touched: from then on only the
    // disk itself can fail.
    QByteArray text;
    const bool complete = write([&text](std::string_view piece) {
        text.append(piece.data(), static_cast<qsizetype>(piece.size()));
        return true;
    });
    QFile file(fileName);
    if (!complete ||
        !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        return false;
    }
    const QByteArray before = file.readAll();
    if (before.size() != file.size()) {
        return false;
    }
    if (writeAll(file, text)) {
        return true;
    }
    writeAll(file, before); // these bytes had room
    return false;
}

} // namespace

bool overwriteFile(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    try {
        return overwriteOrThrow(fileName, write);
    } catch (const std::exception&) {
        return false;
    }
}

bool replaceFile(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    try {
        return replaceOrThrow(fileName, write);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace korvane
