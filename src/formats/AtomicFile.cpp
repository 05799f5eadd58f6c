#include "formats/AtomicFile.h"

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
        const QFileInfo info(name);
        if (!info.isSymbolicLink()) {
            return name;
        }
        name = info.symLinkTarget();
    }
    return std::nullopt;
}

TextSink sinkOf(QIODevice& device) {
    return [&device](std::string_view piece) {
        const auto size = static_cast<qint64>(piece.size());
        return device.write(piece.data(), size) == size;
    };
}

bool writeInPlace(const QString& name, const std::function<bool(const TextSink&)>& write) {
    QFile file(name);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        return false;
    }
    const QByteArray before = file.readAll();
    if (before.size() != file.size() || !file.seek(0)) {
        return false;
    }
    if (write(sinkOf(file)) && file.resize(file.pos())) {
        return true;
    }
    file.seek(0);
    file.write(before);
    file.resize(before.size());
    return false;
}

bool replaceOrThrow(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    const std::optional<QString> name = linkTarget(fileName);
    if (!name || (QFileInfo::exists(*name) && !QFileInfo(*name).isFile())) {
        return false;
    }
    QSaveFile file(*name);
    // Buffered, an error of the last flush would go unnoticed and a cut file would count as saved.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return writeInPlace(*name, write);
    }
    if (!write(sinkOf(file))) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace

bool replaceFile(const QString& fileName, const std::function<bool(const TextSink&)>& write) {
    try {
        return replaceOrThrow(fileName, write);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace korvane
