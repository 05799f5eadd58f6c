#pragma once

#include "formats/textures/Decoding.h"
#include "model/records/TextureImage.h"

#include <QHash>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvane {

/// The textures that nothing is seen of, by name, each once and in the order they were asked for.
struct UnseenTextures {
    std::vector<std::string> notFound;
    std::vector<std::string> notShown; ///< there is a file, but no picture was made of it
};

/// Finds and decodes the textures that a model names. Each name is looked up once, each file
/// decoded once and its image shared, whatever names lead to it. Use one for each reading: the
/// pictures that it makes have together no more than so many pixels.
class TextureLoader {
  public:
    /// `modelFolder` is where the model file stands; it may be empty.
    explicit TextureLoader(QString modelFolder, std::size_t mostPixels = mostPicturePixels);

    /// The image of a texture as the model names it; the 1 x 1 image where there is no such file
    /// or none that can be decoded.
    std::shared_ptr<const TextureImage> load(const std::string& name);

    /// Those of the textures loaded so far that are but the 1 x 1 image.
    [[nodiscard]] const UnseenTextures& unseen() const { return unseen_; }

    /// The file that a name stands for. It is looked for as named, then beside the model, then both
    /// ways with backslashes as separators, then beside the model in any case, at last there by
    /// what follows the last separator. A name without extension stands for the first of .PIC, .TGA
    /// and .BMP that exists.
    std::optional<QString> find(const QString& name);

  private:
    std::shared_ptr<const TextureImage> loadOnce(const QString& file);
    std::optional<QString> findFile(const QString& name);
    std::optional<QString> findInAnyCase(const QString& name);
    const QHash<QString, QString>& entries(const QString& folder);

    QString folder_;
    std::size_t pixelsLeft_;
    std::unordered_map<std::string, std::shared_ptr<const TextureImage>> byName_;
    QHash<QString, std::shared_ptr<const TextureImage>> byFile_;
    /// For each folder looked into, the names in it by their case-folded form.
    QHash<QString, QHash<QString, QString>> entries_;
    UnseenTextures unseen_;
};

/// Decodes a file by its extension; the 1 x 1 image where that cannot be done.
TextureImage loadTextureFile(const QString& fileName, std::size_t mostPixels = mostPicturePixels);
/// The same, to be shared; the one blank image where it cannot be done. Never null.
std::shared_ptr<const TextureImage> loadSharedTexture(const QString& fileName,
                                                      std::size_t mostPixels = mostPicturePixels);

} // namespace korvane
