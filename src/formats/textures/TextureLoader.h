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

/// The textures that nothing is seen of, by name, each once and in the order they were asked for.
struct UnseenTextures {
    std::vector<std::string> notFound;
    std::vector<std::string> notShown; ///< there is a file, but no picture was made of it
};

/// Which spelling of a texture's name leads to its file. Only the first is sure to do so
/// everywhere.
enum class TextureSpelling {
    AsNamed,     ///< the name itself
    Backslashes, ///< with backslashes as separators
    OtherCase,   ///< with other capitals, and backslashes as separators
    PlainName,   ///< what follows the last separator
};

struct FoundTexture {
    QString file;
    TextureSpelling spelling = TextureSpelling::AsNamed;
};

/// Finds and decodes the textures that a model names. Each name is looked up once, each file
/// decoded once and its image shared, whatever names lead to it. Use one for each reading: the
/// pictures that it makes have together no more than so many pixels.
class TextureLoader {
  public:
    /// `modelFolder` is where the model file stands; it may be empty. Without a store, which
    /// readings of several models can share, the loader has its own.
    explicit TextureLoader(QString modelFolder, std::size_t mostPixels = mostPicturePixels,
                           std::shared_ptr<TextureStore> store = nullptr);

    /// The image of a texture as the model names it; the 1 x 1 image where there is no such file
    /// or none that can be decoded.
    std::shared_ptr<const TextureImage> load(const std::string& name);

    [[nodiscard]] const QString& folder() const { return folder_; }

    /// Those of the textures loaded so far that are but the 1 x 1 image.
    [[nodiscard]] const UnseenTextures& unseen() const { return unseen_; }

    /// The file that a name stands for. It is looked for as named, then beside the model, then both
    /// ways with backslashes as separators, then beside the model in any case, at last there by
    /// what follows the last separator. A name without extension stands for the first of .PIC, .TGA
    /// and .BMP that exists.
    std::optional<FoundTexture> locate(const QString& name);
    std::optional<QString> find(const QString& name);
    /// What loading the file comes to, without its picture.
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
    QSet<QString> counted_; ///< the files whose pixels are counted, by canonical path
    std::shared_ptr<TextureStore> store_;
    UnseenTextures unseen_;
};

/// Decodes a file by its extension; the 1 x 1 image where that cannot be done.
TextureImage loadTextureFile(const QString& fileName, std::size_t mostPixels = mostPicturePixels);
/// The same, to be shared; the one blank image where it cannot be done. Never null.
std::shared_ptr<const TextureImage> loadSharedTexture(const QString& fileName,
                                                      std::size_t mostPixels = mostPicturePixels);

} // namespace korvane
