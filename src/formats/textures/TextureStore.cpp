#include "formats/textures/TextureStore.h"

#include "formats/textures/TextureDecoding.h"

#include <QDir>

#include <utility>

namespace korvane {

namespace {

/// A picture with more pixels than allowed counts as refused.
TextureOutcome limited(const TextureOutcome& outcome, std::size_t maxPixels) {
    return outcome.pixels <= maxPixels ? outcome
                                       : TextureOutcome{.refusal = tooManyPixels, .tooLarge = true};
}

} // namespace

TextureOutcome TextureStore::outcome(const TextureFile& file, std::size_t maxPixels) {
    if (known(file.path, maxPixels) == nullptr) {
        decode(file, maxPixels);
    }
    return limited(byFile_[file.path].outcome, maxPixels);
}

std::shared_ptr<const TextureImage> TextureStore::image(const TextureFile& file,
                                                        std::size_t maxPixels) {
    if (const Entry* entry = known(file.path, maxPixels)) {
        if (!limited(entry->outcome, maxPixels).refusal.empty()) {
            return blankTextureImage();
        }
        if (auto image = entry->image.lock()) {
            return image;
        }
    }
    return decode(file, maxPixels);
}

const TextureStore::Entry* TextureStore::known(const QString& path, std::size_t maxPixels) const {
    const auto found = byFile_.constFind(path);
    if (found == byFile_.constEnd() || (found->outcome.tooLarge && found->allowed < maxPixels)) {
        return nullptr;
    }
    return &*found;
}

std::shared_ptr<const TextureImage> TextureStore::decode(const TextureFile& file,
                                                         std::size_t maxPixels) {
    DecodedTexture decoded = decodeTextureFile(file.name, maxPixels);
    Entry entry;
    entry.allowed = maxPixels;
    entry.outcome = {.refusal = std::move(decoded.refusal), .tooLarge = decoded.tooLarge};
    std::shared_ptr<const TextureImage> image = blankTextureImage();
    if (entry.outcome.refusal.empty()) {
        entry.outcome.pixels = decoded.image.pixels.size();
        entry.outcome.width = decoded.image.width;
        entry.outcome.height = decoded.image.height;
        if (!(decoded.image == *image)) {
            image = std::make_shared<const TextureImage>(std::move(decoded.image));
        }
        if (entry.outcome.pixels <= keptPixelsLeft_) {
            keptPixelsLeft_ -= entry.outcome.pixels;
            kept_.push_back(image);
        }
    }
    entry.image = image;
    byFile_.insert(file.path, entry);
    return image;
}

const QHash<QString, QString>& TextureStore::entries(const QString& folder) {
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

} // namespace korvane
