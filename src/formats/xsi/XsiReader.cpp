#include "formats/xsi/XsiReader.h"

#include "formats/files/ByteReader.h"
#include "formats/files/Checksum.h"
#include "formats/files/FileNames.h"
#include "formats/text/LineReader.h"
#include "formats/text/TextWindow.h"
#include "formats/xsi/XsiAnimationReader.h"
#include "formats/xsi/XsiFrameReader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace korvane {

namespace {

/// Consumes the header; returns true if it is one of those known.
bool readHeader(TextScanner& text) {
    constexpr std::size_t headerSize = 16;
    constexpr std::array<std::string_view, 3> headers = {"xsi 0101txt 0032", "xof 0302txt 0032",
                                                         "xof 0302txt 0064"};
    std::string header(text.take(headerSize));
    foldCase(header);
    return std::find(headers.begin(), headers.end(), header) != headers.end();
}

/// Adds the rest of the file to the sum; false if it cannot be read.
bool addRest(Checksum& sum, QFile& file, const std::function<void()>& reportProgress) {
    constexpr qint64 pieceSize = 1 << 18;
    while (!file.atEnd()) {
        reportProgress();
        const QByteArray piece = file.read(pieceSize);
        if (piece.isEmpty()) {
            return false;
        }
        sum.add(bytesOf(piece));
    }
    return true;
}

class ReadCancelled : public std::exception {};

ReadStatus openAndRead(const QString& fileName, ModelDocument& document,
                       const ReadProgress& progress, OpenNotes* notes) {
    const QFileInfo info(fileName);
    if (!info.exists()) {
        return ReadStatus::Missing;
    }
    QFile file(fileName);
    // A folder cannot be read, and a pipe or a device might never end.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return ReadStatus::CannotOpen;
    }
    const auto size = static_cast<std::size_t>(std::max<qint64>(file.size(), 0));
    std::size_t done = 0;
    Checksum sum;
    const auto reportProgress = [&] {
        if (progress && !progress(done, size)) {
            throw ReadCancelled();
        }
    };
    const ByteSource source = [&](std::span<char> space) {
        reportProgress();
        const qint64 got = file.read(space.data(), static_cast<qint64>(space.size()));
        if (got < 0) {
            throw std::runtime_error("the file cannot be read to its end");
        }
        done += static_cast<std::size_t>(got);
        if (notes != nullptr) {
            sum.add(std::string_view(space.data(), static_cast<std::size_t>(got)));
        }
        return static_cast<std::size_t>(got);
    };
    const std::optional<FileStamp> stamp = stampOf(file);
    TextWindow window(source, size);
    TextureLoader loader(info.path());
    const ReadStatus status = readXsi(TextScanner(window), document, [&](const std::string& name) {
        reportProgress(); // a few lines can name large pictures
        return loader.load(name);
    });
    if (notes != nullptr) {
        notes->unseen = loader.unseen();
        if (stamp && status == ReadStatus::Done) {
            const bool whole = addRest(sum, file, reportProgress);
            notes->file = FileState{*stamp, whole ? std::optional(sum.value()) : std::nullopt};
        }
    }
    return status;
}

ReadStatus readOrThrow(TextScanner text, ModelDocument& document, const TextureSource& textures,
                       ReadNotes* notes) {
    if (!readHeader(text)) {
        return ReadStatus::NotValid;
    }
    LineReader lines(text, notes);
    XsiFrameReader frames(lines, document.Materials, textures);
    XsiAnimationReader animations(lines, document.Root);
    while (lines.next()) {
        const bool isTemplate = lines.holds("template");
        if (!isTemplate && lines.wantsNotes() && lines.holds('{') && !lines.holds("frame") &&
            !lines.holds("animationset")) {
            lines.note(NoteKind::LooseBlock);
        }
        if (!isTemplate && lines.holds("frame")) {
            animations.forgetFrames();
            frames.readTopLevel(document.Root);
        }
        if (!isTemplate && lines.holds("animationset")) {
            animations.readSection();
        }
    }
    lines.noteFailure();
    document.computeDerivedData();
    document.NeverSaved = false;
    document.Modified = false;
    return ReadStatus::Done;
}

/// Half a model is worse than none: if the bytes cannot be read, memory runs out or the user
/// cancels, the document is left empty.
template <class Read>
ReadStatus wholeOrNothing(ModelDocument& document, Read read) {
    try {
        return read();
    } catch (const ReadCancelled&) {
        document = ModelDocument();
        return ReadStatus::Cancelled;
    } catch (const std::exception&) {
        document = ModelDocument();
        return ReadStatus::CannotOpen;
    }
}

} // namespace

ReadStatus readXsi(TextScanner text, ModelDocument& document, const TextureSource& textures,
                   ReadNotes* notes) {
    return wholeOrNothing(document, [&] { return readOrThrow(text, document, textures, notes); });
}

ReadStatus FileOpenXSI(const QString& fileName, ModelDocument& document,
                       const ReadProgress& progress, OpenNotes* notes) {
    const ReadStatus status =
        wholeOrNothing(document, [&] { return openAndRead(fileName, document, progress, notes); });
    document.FileName = fileName;
    if (status == ReadStatus::CannotOpen || status == ReadStatus::NotValid) {
        document.FileName = QStringLiteral("Untitled");
        document.NeverSaved = true;
    }
    document.markSelection(FramePath());
    return status;
}

QString failureCaption(ReadStatus status, const QString& fileName) {
    switch (status) {
    case ReadStatus::CannotOpen:
        return QStringLiteral("Unable to open file");
    case ReadStatus::NotValid:
        return QStringLiteral("Not a valid %1 file").arg(upperExtension(fileName));
    case ReadStatus::Done:
    case ReadStatus::Missing:
    case ReadStatus::Cancelled:
        break;
    }
    return {};
}

} // namespace korvane
