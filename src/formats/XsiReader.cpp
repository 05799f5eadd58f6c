#include "formats/XsiReader.h"

#include "formats/LineReader.h"
#include "formats/XsiAnimationReader.h"
#include "formats/XsiFrameReader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace korvane {

namespace {

constexpr std::size_t headerSize = 16;

bool isHeader(std::span<const char> bytes) {
    constexpr std::array<std::string_view, 3> headers = {"xsi 0101txt 0032", "xof 0302txt 0032",
                                                         "xof 0302txt 0064"};
    if (bytes.size() < headerSize) {
        return false;
    }
    std::string folded(bytes.data(), headerSize);
    for (char& c : folded) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return std::find(headers.begin(), headers.end(), folded) != headers.end();
}

/// The bytes of a file, without the cost of clearing memory that is overwritten at once.
struct FileBytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;

    [[nodiscard]] std::span<const char> view() const { return {data.get(), size}; }
};

/// Reads the file's header and then, where it is one of a model, the rest.
bool readFile(QFile& file, FileBytes& bytes) {
    std::array<char, headerSize> header{};
    const qint64 got = file.read(header.data(), headerSize);
    if (got < 0) {
        return false;
    }
    const auto headerBytes = std::span<const char>(header).first(static_cast<std::size_t>(got));
    const qint64 rest = isHeader(headerBytes) ? std::max<qint64>(file.size() - got, 0) : 0;
    bytes.data = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(got + rest));
    std::copy(headerBytes.begin(), headerBytes.end(), bytes.data.get());
    const qint64 read = rest > 0 ? file.read(bytes.data.get() + got, rest) : 0;
    if (read < 0) {
        return false;
    }
    bytes.size = static_cast<std::size_t>(got + read);
    return true;
}

ReadStatus openAndRead(const QString& fileName, ModelDocument& document) {
    const QFileInfo info(fileName);
    if (!info.exists()) {
        return ReadStatus::Missing;
    }
    QFile file(fileName);
    // A folder cannot be read, and a pipe or a device might never end.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return ReadStatus::CannotOpen;
    }
    FileBytes bytes;
    if (!readFile(file, bytes)) {
        return ReadStatus::CannotOpen;
    }
    return readXsi(bytes.view(), document);
}

} // namespace

ReadStatus readXsi(std::span<const char> bytes, ModelDocument& document) {
    if (!isHeader(bytes)) {
        return ReadStatus::NotValid;
    }
    LineReader lines(bytes.subspan(headerSize));
    XsiFrameReader frames(lines, document.Materials);
    XsiAnimationReader animations(lines, document.Root);
    while (lines.next()) {
        const bool isTemplate = lines.holds("template");
        if (!isTemplate && lines.holds("frame")) {
            animations.forgetFrames();
            frames.readTopLevel(document.Root);
        }
        if (!isTemplate && lines.holds("animationset")) {
            animations.readSection();
        }
    }
    document.computeDerivedData();
    document.NeverSaved = false;
    document.Modified = false;
    return ReadStatus::Done;
}

ReadStatus FileOpenXSI(const QString& fileName, ModelDocument& document) {
    ReadStatus status = ReadStatus::CannotOpen;
    try {
        status = openAndRead(fileName, document);
    } catch (const std::exception&) {
        document = ModelDocument(); // the model did not fit into memory
    }
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
        break;
    }
    return {};
}

QString upperExtension(const QString& fileName) {
    const qsizetype folder =
        std::max(fileName.lastIndexOf(QLatin1Char('/')), fileName.lastIndexOf(QLatin1Char('\\')));
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot > folder ? fileName.mid(dot).toUpper() : QString();
}

bool isTextModelName(const QString& fileName) {
    const QString extension = upperExtension(fileName);
    return extension == QStringLiteral(".XSI") || extension == QStringLiteral(".X");
}

} // namespace korvane
