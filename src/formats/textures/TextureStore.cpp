#include "formats/textures/TextureStore.h"

#include "formats/textures/TextureDecoding.h"

#include <QDir>

#include <utility>

namespace korvane {

namespace {

/// A picture with more pixels than allowed counts as refused.
TextureOutcome limited(const TextureOutcome& outcome, std::size_t mostPixels) {
    return outcome.pixels <= mostPixels
               ? outcome
               : TextureOutcome{.refusal = tooManyPixels, .tooLarge = true};
}

} // namespace

TextureOutcome TextureStore::outcome(const TextureFile& file, std::size_t mostPixels) {
    if (known(file.path, mostPixels) == nullptr) {
        decode(file, mostPixels);
    }
    return limited(byFile_[file.path].outcome, mostPixels);
}

std::shared_ptr<const TextureImage> TextureStore::image(const TextureFile& file,
                                                        std::size_t mostPixels) {
    if (const Entry* entry = known(file.path, mostPixels)) {
        if (!limited(entry->outcome, mostPixels).refusal.empty()) {
            return blankTextureImage();
        }
        if (auto image = entry->image.lock()) {
            return image;
        }
    }
    return decode(file, mostPixels);
}

const TextureStore::Entry* TextureStore::known(const QString& path, std::size_t mostPixels) const {
    const auto found = byFile_.constFind(path);
    if (found == byFile_.constEnd() || (found->outcome.tooLarge && found->allowed < mostPixels)) {
        return nullptr;
    }
    return &*found;
}

std::shared_ptr<const TextureImage> TextureStore::decode(const TextureFile& file,
                                                         std::size_t mostPixels) {
    DecodedTexture decoded = decodeTextureFile(file.name, mostPixels);
    Entry entry;
    entry.allowed = mostPixels;
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
