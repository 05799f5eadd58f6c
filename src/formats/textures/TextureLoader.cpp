#include "formats/textures/TextureLoader.h"

#include "formats/files/ByteReader.h"
#include "formats/files/FileNames.h"
#include "formats/textures/PicDecoder.h"
#include "formats/textures/QtDecoder.h"
#include "formats/textures/TgaDecoder.h"
#include "model/records/ModelText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace korvane {

namespace {

/// Whether there is a file of that name; folders and devices are none.
bool isFile(const QString& name) {
    return QFileInfo(name).isFile();
}

} // namespace

TextureLoader::TextureLoader(QString modelFolder, std::size_t mostPixels)
    : folder_(std::move(modelFolder)), pixelsLeft_(mostPixels) {}

std::shared_ptr<const TextureImage> TextureLoader::load(const std::string& name) {
    const auto [entry, isNew] = byName_.try_emplace(name, blankTextureImage());
    if (isNew) {
        const auto file = find(shownText(name));
        if (file) {
            entry->second = loadOnce(*file);
        }
        if (entry->second == blankTextureImage() && !name.empty()) {
            (file ? unseen_.notShown : unseen_.notFound).push_back(name);
        }
    }
    return entry->second;
}

std::shared_ptr<const TextureImage> TextureLoader::loadOnce(const QString& file) {
    const QString path = QFileInfo(file).canonicalFilePath();
    const auto known = byFile_.constFind(path);
    if (known != byFile_.constEnd()) {
        return *known;
    }
    std::shared_ptr<const TextureImage> image = loadSharedTexture(file, pixelsLeft_);
    if (image != blankTextureImage()) {
        pixelsLeft_ -= image->pixels.size();
    }
    return *byFile_.insert(path, image);
}

std::optional<QString> TextureLoader::find(const QString& name) {
    if (!upperExtension(name).isEmpty()) {
        return findFile(name);
    }
    for (const char* extension : {".PIC", ".TGA", ".BMP"}) {
        if (auto file = findFile(name + QLatin1String(extension))) {
            return file;
        }
    }
    return std::nullopt;
}

std::optional<QString> TextureLoader::findFile(const QString& name) {
    QString separated = name;
    separated.replace(u'\\', u'/');
    for (const QString& form : {name, separated}) {
        for (const QString& file : {form, QDir(folder_).filePath(form)}) {
            if (isFile(file)) {
                return file;
            }
        }
    }
    if (auto file = findInAnyCase(separated)) {
        return file;
    }
    const qsizetype folder = separated.lastIndexOf(u'/');
    return folder < 0 ? std::nullopt : findInAnyCase(separated.mid(folder + 1));
}

std::optional<QString> TextureLoader::findInAnyCase(const QString& name) {
    QString path = name.startsWith(u'/') ? QStringLiteral("/") : folder_;
    for (const QString& part : name.split(u'/', Qt::SkipEmptyParts)) {
        const QHash<QString, QString>& names = entries(path);
        const auto entry = names.constFind(part.toCaseFolded());
        if (entry == names.constEnd()) {
            return std::nullopt;
        }
        path = QDir(path).filePath(*entry);
    }
    return isFile(path) ? std::optional(path) : std::nullopt;
}

const QHash<QString, QString>& TextureLoader::entries(const QString& folder) {
    const auto known = entries_.constFind(folder);
    if (known != entries_.constEnd()) {
        return *known;
    }
    QHash<QString, QString> names;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::AllDirs)) {
        names.insert(name.toCaseFolded(), name);
    }
    return *entries_.insert(folder, names);
}

TextureImage loadTextureFile(const QString& fileName, std::size_t mostPixels) {
    return decodedOrBlank([&]() -> TextureImage {
        const QString extension = upperExtension(fileName);
        QFile file(fileName);
        if (!isFile(fileName) || !file.open(QIODevice::ReadOnly)) {
            return {};
        }
        if (extension == QLatin1String(".TGA")) {
            return decodeTga(bytesOf(file.readAll()), mostPixels);
        }
        if (extension == QLatin1String(".PIC")) {
            return decodePic(bytesOf(file.readAll()), mostPixels);
        }
        if (extension == QLatin1String(".BMP")) {
            return decodeWithQt(bytesOf(file.readAll()), "BMP", mostPixels);
        }
        if (extension == QLatin1String(".ICO")) {
            return decodeWithQt(bytesOf(file.readAll()), "ICO", mostPixels);
        }
        return {};
    });
}

std::shared_ptr<const TextureImage> loadSharedTexture(const QString& fileName,
                                                      std::size_t mostPixels) {
    TextureImage image = loadTextureFile(fileName, mostPixels);
    return image == *blankTextureImage() ? blankTextureImage()
                                         : std::make_shared<const TextureImage>(std::move(image));
}

} // namespace korvane
