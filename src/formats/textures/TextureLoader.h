#pragma once

#include "formats/textures/TextureStore.h"
#include "model/records/TextureImage.h"

#include <QSet>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvane {

/// The names of textures that are not shown, each once and in the order of loading.
struct UnseenTextures {
    std::vector<std::string> notFound;
    std::vector<std::string> notShown; ///< the file exists, but was not decoded
};

/// The spelling of a texture's name that led to its file. Other programs are only sure to find the
/// first.
enum class TextureSpelling {
    AsNamed,     ///< the name itself
    Backslashes, ///< with backslashes as separators
    OtherCase,   ///< in other letter case, with backslashes as separators
    PlainName,   ///< the part after the last separator
};

struct FoundTexture {
    QString file;
    TextureSpelling spelling = TextureSpelling::AsNamed;
};

/// Finds and decodes the textures that a model names. Each name is looked up once, each file
/// decoded once and its image shared, whatever names lead to it. Use one loader for each reading:
/// the total number of pixels is limited.
class TextureLoader {
  public:
    /// `modelFolder` is the folder of the model file; it may be empty. A store can be shared by the
    /// readings of several models; without one, the loader makes its own.
    explicit TextureLoader(QString modelFolder, std::size_t maxPixels = maxPicturePixels,
                           std::shared_ptr<TextureStore> store = nullptr);

    /// Returns the image of a texture as the model names it; the 1 x 1 image if there is no such
    /// file or it cannot be decoded.
    std::shared_ptr<const TextureImage> load(const std::string& name);

    [[nodiscard]] const QString& folder() const { return folder_; }

    /// The textures loaded so far for which there is only the 1 x 1 image.
    [[nodiscard]] const UnseenTextures& unseen() const { return unseen_; }

    /// Finds the file that a name stands for: as named, beside the model, both again with
    /// backslashes as separators, then from the model's folder (or the root, if absolute) in any
    /// letter case, and last in that folder by the part after the last separator. A name without
    /// extension stands for the first of .PIC, .TGA and .BMP that exists.
    std::optional<FoundTexture> locate(const QString& name);
    std::optional<QString> find(const QString& name);
    /// Returns the outcome of loading the file, without the picture.
    TextureOutcome outcome(const FoundTexture& found);

  private:
    std::optional<FoundTexture> findFile(const QString& name);
    [[nodiscard]] FoundTexture withSmallExtension(FoundTexture found, const QString& name) const;
    std::optional<QString> findInAnyCase(const QString& name);
    [[nodiscard]] std::size_t allowedFor(const TextureFile& file) const;
    void count(const TextureFile& file, std::size_t pixels);

    QString folder_;
    std::size_t pixelsLeft_;
    std::unordered_map<std::string, std::shared_ptr<const TextureImage>> byName_;
    QSet<QString> counted_; ///< the files already counted, by canonical path
    std::shared_ptr<TextureStore> store_;
    UnseenTextures unseen_;
};

/// Decodes a file by its extension; returns the 1 x 1 image on failure.
TextureImage loadTextureFile(const QString& fileName, std::size_t maxPixels = maxPicturePixels);
/// The same for sharing; returns the one blank image on failure. Never null.
std::shared_ptr<const TextureImage> loadSharedTexture(const QString& fileName,
                                                      std::size_t maxPixels = maxPicturePixels);

} // namespace korvane
