#pragma once

#include "formats/textures/Decoding.h"
#include "model/records/TextureImage.h"

#include <QHash>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace korvane {

/// What became of a texture file.
struct TextureOutcome {
    std::size_t pixels = 0;  ///< of its picture
    std::int32_t width = 0;  ///< likewise
    std::int32_t height = 0; ///< likewise
    std::string refusal;     ///< why there is no picture, as DecodedTexture has it; else empty
    bool tooLarge = false;
};

/// A texture's file.
struct TextureFile {
    QString name; ///< as it was found, which tells its kind
    QString path; ///< the canonical one, which tells it from others
};

/// What readings of many models in one run share: what became of each texture file, and the names
/// in each folder, which is listed once. Files that change meanwhile go unnoticed, and so does a
/// folder whose name comes to stand for another one.
class TextureStore {
  public:
    /// Keeps pictures of so many pixels for models to come; beyond that only what came of a file.
    explicit TextureStore(std::size_t keptPixels = 0) : keptPixelsLeft_(keptPixels) {}

    /// What comes of a file where no more pixels are allowed. Decodes it only if that is not known.
    TextureOutcome outcome(const TextureFile& file, std::size_t mostPixels);
    /// The picture as well; the blank image where there is none. Never null. Decodes the file anew
    /// where its picture was neither kept nor is used any more.
    std::shared_ptr<const TextureImage> image(const TextureFile& file, std::size_t mostPixels);

    /// The names in a folder by their case-folded form; valid until another folder is asked for.
    const QHash<QString, QString>& entries(const QString& folder);

  private:
    struct Entry {
        TextureOutcome outcome;
        std::size_t allowed = 0; ///< the most pixels that it was decoded with
        std::weak_ptr<const TextureImage> image;
    };

    std::shared_ptr<const TextureImage> decode(const TextureFile& file, std::size_t mostPixels);
    /// Null where nothing is known of the file that holds for this many pixels.
    const Entry* known(const QString& path, std::size_t mostPixels) const;

    std::size_t keptPixelsLeft_;
    std::vector<std::shared_ptr<const TextureImage>> kept_;
    QHash<QString, Entry> byFile_;
    QHash<QString, QHash<QString, QString>> entries_;
};

} // namespace korvane
