#include "formats/textures/TextureLoader.h"

#include "formats/files/FileNames.h"
#include "formats/textures/TextureDecoding.h"
#include "model/records/ModelText.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace korvane {

namespace {

/// Returns true for a file, false for folders and devices.
bool isFile(const QString& name) {
    return QFileInfo(name).isFile();
}

TextureFile fileOf(const FoundTexture& found) {
    return {found.file, QFileInfo(found.file).canonicalFilePath()};
}

} // namespace

TextureLoader::TextureLoader(QString modelFolder, std::size_t maxPixels,
                             std::shared_ptr<TextureStore> store)
    : folder_(std::move(modelFolder)), pixelsLeft_(maxPixels),
      store_(store ? std::move(store) : std::make_shared<TextureStore>()) {}

std::shared_ptr<const TextureImage> TextureLoader::load(const std::string& name) {
    const auto [entry, isNew] = byName_.try_emplace(name, blankTextureImage());
    if (isNew) {
        const auto found = locate(shownText(name));
        if (found) {
            const TextureFile file = fileOf(*found);
            entry->second = store_->image(file, allowedFor(file));
            count(file, entry->second == blankTextureImage() ? 0 : entry->second->pixels.size());
        }
        if (entry->second == blankTextureImage() && !name.empty()) {
            (found ? unseen_.notShown : unseen_.notFound).push_back(name);
        }
    }
    return entry->second;
}

TextureOutcome TextureLoader::outcome(const FoundTexture& found) {
    const TextureFile file = fileOf(found);
    TextureOutcome outcome = store_->outcome(file, allowedFor(file));
    count(file, outcome.pixels);
    return outcome;
}

/// The pixels of a file count once, however many names lead to it.
std::size_t TextureLoader::allowedFor(const TextureFile& file) const {
    return counted_.contains(file.path) ? maxPicturePixels : pixelsLeft_;
}

void TextureLoader::count(const TextureFile& file, std::size_t pixels) {
    if (pixels > 0 && !counted_.contains(file.path)) {
        counted_.insert(file.path);
        pixelsLeft_ -= pixels;
    }
}

std::optional<QString> TextureLoader::find(const QString& name) {
    auto found = locate(name);
    return found ? std::optional(std::move(found->file)) : std::nullopt;
}

std::optional<FoundTexture> TextureLoader::locate(const QString& name) {
    if (!upperExtension(name).isEmpty()) {
        return findFile(name);
    }
    for (const char* extension : {".PIC", ".TGA", ".BMP"}) {
        if (auto found = findFile(name + QLatin1String(extension))) {
            return withSmallExtension(*found, name + QString(QLatin1String(extension)).toLower());
        }
    }
    return std::nullopt;
}

/// A lower-case extension is no other spelling if the model names none.
FoundTexture TextureLoader::withSmallExtension(FoundTexture found, const QString& name) const {
    if (found.spelling == TextureSpelling::OtherCase) {
        QString separated = name;
        separated.replace(u'\\', u'/');
        const QString file = QDir::cleanPath(found.file);
        if (file == QDir::cleanPath(QDir(folder_).filePath(separated))) {
            found.spelling =
                separated == name ? TextureSpelling::AsNamed : TextureSpelling::Backslashes;
        }
    }
    return found;
}

std::optional<FoundTexture> TextureLoader::findFile(const QString& name) {
    QString separated = name;
    separated.replace(u'\\', u'/');
    for (const QString& form : {name, separated}) {
        const auto spelling =
            form == name ? TextureSpelling::AsNamed : TextureSpelling::Backslashes;
        for (const QString& file : {form, QDir(folder_).filePath(form)}) {
            if (isFile(file)) {
                return FoundTexture{file, spelling};
            }
        }
    }
    if (auto file = findInAnyCase(separated)) {
        return FoundTexture{*file, TextureSpelling::OtherCase};
    }
    const qsizetype folder = separated.lastIndexOf(u'/');
    if (folder >= 0) {
        if (auto file = findInAnyCase(separated.mid(folder + 1))) {
            return FoundTexture{*file, TextureSpelling::PlainName};
        }
    }
    return std::nullopt;
}

std::optional<QString> TextureLoader::findInAnyCase(const QString& name) {
    QString path = name.startsWith(u'/') ? QStringLiteral("/") : folder_;
    for (const QString& part : name.split(u'/', Qt::SkipEmptyParts)) {
        const QHash<QString, QString>& names = store_->entries(path);
        const auto entry = names.constFind(part.toCaseFolded());
        if (entry == names.constEnd()) {
            return std::nullopt;
        }
        path = QDir(path).filePath(*entry);
    }
    return isFile(path) ? std::optional(path) : std::nullopt;
}

TextureImage loadTextureFile(const QString& fileName, std::size_t maxPixels) {
    return decodeTextureFile(fileName, maxPixels).image;
}

std::shared_ptr<const TextureImage> loadSharedTexture(const QString& fileName,
                                                      std::size_t maxPixels) {
    TextureImage image = loadTextureFile(fileName, maxPixels);
    return image == *blankTextureImage() ? blankTextureImage()
                                         : std::make_shared<const TextureImage>(std::move(image));
}

} // namespace korvane
