#include "edit/recovery/RecoveryCopy.h"

#include "edit/clipboard/RecordReader.h"
#include "edit/clipboard/RecordWriter.h"
#include "formats/files/ByteReader.h"
#include "formats/files/Checksum.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

namespace {

using namespace clipboard;

constexpr std::string_view mark = "Korvane recovery";
constexpr std::uint32_t version = 1;
constexpr std::size_t fixedHeadSize = 16 + 4 + 4 + 8 + 8 + 8;
constexpr std::size_t sumSize = 8;
/// Keeps all indices as they are.
constexpr std::size_t anyIndex = std::size_t{nowhere} + 1;

class Writer : public RecordWriter {
  public:
    void records(const ModelDocument& document) {
        count(document.Materials.size());
        for (const MaterialRecord& material : document.Materials) {
            transferMaterial(*this, material);
        }
        writeFrame(*this, document.Root);
    }
    void longWord(std::uint64_t value) {
        word(static_cast<std::uint32_t>(value));
        word(static_cast<std::uint32_t>(value >> 32U));
    }
    void bytes(std::string_view bytes) {
        std::copy(bytes.begin(), bytes.end(), room(bytes.size()));
    }
    using RecordWriter::take;

    void polygons(const PolygonList& list, std::size_t /*limit*/) {
        RecordWriter::polygons(list, anyIndex);
    }
    void indices(const std::vector<std::int32_t>& list, std::size_t /*limit*/) {
        RecordWriter::indices(list, anyIndex);
    }
    void materialSlots(const std::vector<std::int32_t>& slots) { indices(slots, anyIndex); }
    void currentSlot(const std::int32_t& slot, std::size_t /*slots*/) { value(slot); }
    void image(const std::shared_ptr<const TextureImage>& /*image*/) {}
};

class Reader : public RecordReader<Floats::Any> {
  public:
    using RecordReader::RecordReader;

    void records(ModelDocument& document) {
        document.Materials.resize(count(materialSize));
        for (MaterialRecord& material : document.Materials) {
            transferMaterial(*this, material);
        }
        readFrame(*this, document.Root, 0);
        require(word() == 0 && remaining() == 0);
    }
    std::uint64_t longWord() {
        const std::uint64_t low = word();
        return low | std::uint64_t{word()} << 32U;
    }

    void name(std::string& name) { text(name); }
    void fileName(std::string& name) { text(name); }
    void polygons(PolygonList& list, std::size_t /*limit*/) {
        RecordReader::polygons(list, anyIndex);
    }
    void indices(std::vector<std::int32_t>& list, std::size_t /*limit*/) { this->list(list); }
    void materialSlots(std::vector<std::int32_t>& slots) { this->list(slots); }
    void currentSlot(std::int32_t& slot, std::size_t /*slots*/) { value(slot); }
    void image(const std::shared_ptr<const TextureImage>& /*image*/) {}
};

std::string_view textOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QByteArray headOf(const QString& model, std::int64_t time, const QByteArray& records) {
    const QByteArray name = model.toUtf8();
    Writer out;
    out.bytes(mark);
    out.word(version);
    out.count(static_cast<std::size_t>(name.size()));
    out.longWord(static_cast<std::uint64_t>(time));
    out.longWord(static_cast<std::uint64_t>(records.size()));
    out.longWord(checksumOf(bytesOf(records)));
    out.bytes(textOf(name));
    QByteArray head = out.take();
    Writer sum;
    sum.longWord(checksumOf(bytesOf(head)));
    return head + sum.take();
}

CopyHead headFrom(std::span<const std::uint8_t> start, std::uint64_t size) {
    CopyHead head;
    Reader in(start);
    const auto begin = in.bytes(mark.size());
    require(std::equal(begin.begin(), begin.end(), mark.begin()));
    if (in.word() != version) {
        head.fault = CopyFault::OtherVersion;
        return head;
    }
    const std::size_t nameSize = in.word();
    head.time = static_cast<std::int64_t>(in.longWord());
    head.records = in.longWord();
    head.contents = in.longWord();
    const auto name = in.bytes(nameSize);
    head.size = fixedHeadSize + nameSize + sumSize;
    require(in.longWord() == checksumOf(start.first(fixedHeadSize + nameSize)));
    require(size >= head.size && size - head.size == head.records);
    head.model = QString::fromUtf8(QByteArray(reinterpret_cast<const char*>(name.data()),
                                              static_cast<qsizetype>(name.size())));
    head.fault = CopyFault::None;
    return head;
}

} // namespace

QByteArray encodeRecords(const ModelDocument& document) {
    Writer out;
    out.records(document);
    return out.take();
}

std::optional<ModelDocument> decodeRecords(std::span<const std::uint8_t> bytes) {
    ModelDocument document;
    try {
        Reader(bytes).records(document);
    } catch (const BadRecord&) {
        return std::nullopt;
    }
    document.computeDerivedData();
    document.markSelection(FramePath());
    return document;
}

bool writeCopy(const ModelDocument& document, std::int64_t time, const TextSink& sink) {
    const QByteArray records = encodeRecords(document);
    return sink(textOf(headOf(document.FileName, time, records))) && sink(textOf(records));
}

CopyHead readCopyHead(std::span<const std::uint8_t> start, std::uint64_t size) {
    try {
        return headFrom(start, size);
    } catch (const BadRecord&) {
        return {};
    }
}

std::optional<ModelDocument> readCopy(std::span<const std::uint8_t> bytes,
                                      const TextureSource& textures) {
    const CopyHead head = readCopyHead(bytes, bytes.size());
    if (head.fault != CopyFault::None || checksumOf(bytes.subspan(head.size)) != head.contents) {
        return std::nullopt;
    }
    std::optional<ModelDocument> document = decodeRecords(bytes.subspan(head.size));
    if (document) {
        document->FileName = head.model;
        for (MaterialRecord& material : document->Materials) {
            // even if the texture is off: the user may switch it on
            if (textures && !material.TextureFile.empty()) {
                material.TextureImage = textures(material.TextureFile);
            }
        }
    }
    return document;
}

} // namespace korvane
