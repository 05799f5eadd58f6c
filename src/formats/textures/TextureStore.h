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

/// The outcome of decoding a texture file.
struct TextureOutcome {
    std::size_t pixels = 0;  ///< of its picture
    std::int32_t width = 0;  ///< likewise
    std::int32_t height = 0; ///< likewise
    std::string refusal;     ///< as in DecodedTexture
    bool tooLarge = false;
};

/// A texture's file.
struct TextureFile {
    QString name; ///< as found; its extension tells the kind
    QString path; ///< canonical; identifies the file
};

/// Shared by the readings of many models in one run: decodes each texture file once, and lists each
/// folder once. Does not notice files that change meanwhile, nor a folder whose name comes to lead
/// to another one.
class TextureStore {
  public:
    /// Keeps pictures up to this many pixels in all for later models; of others, only the outcome.
    explicit TextureStore(std::size_t keptPixels = 0) : keptPixelsLeft_(keptPixels) {}

    /// Returns the outcome with this pixel limit; decodes the file only if it is not yet known.
    TextureOutcome outcome(const TextureFile& file, std::size_t maxPixels);
    /// Returns the picture, or the blank image if there is none. Never null. Decodes the file again
    /// if its picture was not kept and is no longer in use.
    std::shared_ptr<const TextureImage> image(const TextureFile& file, std::size_t maxPixels);

    /// Returns the names in a folder by case-folded form; valid until the next call for another.
    const QHash<QString, QString>& entries(const QString& folder);

  private:
    struct Entry {
        TextureOutcome outcome;
        std::size_t allowed = 0; ///< the pixel limit that it was decoded with
        std::weak_ptr<const TextureImage> image;
    };

    std::shared_ptr<const TextureImage> decode(const TextureFile& file, std::size_t maxPixels);
    /// Returns null if nothing is known of the file for this pixel limit.
    const Entry* known(const QString& path, std::size_t maxPixels) const;

    std::size_t keptPixelsLeft_;
    std::vector<std::shared_ptr<const TextureImage>> kept_;
    QHash<QString, Entry> byFile_;
    QHash<QString, QHash<QString, QString>> entries_;
};

} // namespace korvane
