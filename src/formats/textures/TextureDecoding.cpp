#include "formats/textures/TextureDecoding.h"

#include "formats/files/ByteReader.h"
#include "formats/files/FileNames.h"
#include "formats/textures/PicDecoder.h"
#include "formats/textures/QtDecoder.h"
#include "formats/textures/TgaDecoder.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace korvane {

namespace {

struct Decoder {
    const char* extension;
    DecodedTexture (*decode)(std::span<const std::uint8_t> bytes, std::size_t maxPixels);
};

constexpr Decoder decoders[] = {
    {".TGA", decodeTga},
    {".PIC", decodePic},
    {".BMP", [](auto bytes, std::size_t max) { return decodeWithQt(bytes, "BMP", max); }},
    {".ICO", [](auto bytes, std::size_t max) { return decodeWithQt(bytes, "ICO", max); }},
};

/// Returns the decoder for the extension, or null.
const Decoder* decoderOf(const QString& extension) {
    const QString upper = extension.toUpper();
    const auto* found =
        std::find_if(std::begin(decoders), std::end(decoders), [&](const Decoder& decoder) {
            return upper == QLatin1String(decoder.extension);
        });
    return found == std::end(decoders) ? nullptr : found;
}

DecodedTexture refused(const std::string& reason) {
    return {{}, reason, false};
}

DecodedTexture unknownKind(const QString& extension) {
    return refused(extension.isEmpty() ? "its name has no extension"
                                       : extension.toLower().toStdString() + " files are not read");
}

} // namespace

DecodedTexture decodeTexture(std::span<const std::uint8_t> bytes, const QString& extension,
                             std::size_t maxPixels) {
    const Decoder* decoder = decoderOf(extension);
    return decoder == nullptr ? unknownKind(extension) : decoder->decode(bytes, maxPixels);
}

DecodedTexture decodeTextureFile(const QString& fileName, std::size_t maxPixels) {
    const QString extension = upperExtension(fileName);
    const Decoder* decoder = decoderOf(extension);
    if (decoder == nullptr) {
        return unknownKind(extension);
    }
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly)) {
        return refused("the file cannot be read");
    }
    try {
        return decoder->decode(bytesOf(file.readAll()), maxPixels);
    } catch (const std::exception&) {
        return {{}, "it does not fit into memory", true};
    }
}

} // namespace korvane
