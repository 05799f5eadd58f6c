#include "formats/files/OtherSave.h"

#include "formats/files/AtomicFile.h"
#include "formats/files/Checksum.h"

#include <QFile>

#include <string_view>

namespace korvane {

namespace {

/// Passes a file's bytes to the sink in pieces; false if reading fails or the sink refuses them.
bool passOn(const QString& fileName, const TextSink& sink) {
    constexpr qint64 pieceSize = 1 << 18;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return false;
    }
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (;;) {
        const qint64 got = file.read(piece.data(), pieceSize);
        if (got <= 0) {
            return got == 0;
        }
        if (!sink(std::string_view(piece.constData(), static_cast<std::size_t>(got)))) {
            return false;
        }
    }
}

/// Returns true if the file still has this checksum.
bool holds(const QString& fileName, const std::optional<std::uint64_t>& contents) {
    Checksum sum;
    const bool read = contents && passOn(fileName, [&sum](std::string_view piece) {
                          sum.add(piece);
                          return true;
                      });
    return read && sum.value() == contents;
}

} // namespace

OtherSave keepOtherSave(const QString& fileName, const std::optional<FileState>& known) {
    const std::optional<FileStamp> stamp = stampOf(fileName);
    if (!stamp || (known && (known->stamp == *stamp || holds(fileName, known->contents)))) {
        return {};
    }
    constexpr int maxTries = 1000;
    for (int number = 1; number <= maxTries; ++number) {
        const QString name = fileName + u'~' + (number > 1 ? QString::number(number) : QString());
        Checksum sum;
        const auto copy = [&](const TextSink& sink) {
            return passOn(fileName, [&](std::string_view piece) {
                sum.add(piece);
                return sink(piece);
            });
        };
        switch (makeFile(name, fileName, copy)) {
        case MadeFile::Done:
            return {OtherSave::Fate::Kept, name, FileState{*stamp, sum.value()}};
        case MadeFile::Failed:
            return {OtherSave::Fate::NotKept, {}, {}};
        case MadeFile::NameTaken:
            break;
        }
    }
    return {OtherSave::Fate::NotKept, {}, {}};
}

} // namespace korvane
