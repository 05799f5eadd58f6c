#pragma once

#include "formats/textures/TextureLoader.h"
#include "formats/xsi/XsiReader.h"
#include "model/document/ModelDocument.h"
#include "tool/CommandLine.h"
#include "tool/InputFile.h"

#include <QString>

#include <memory>
#include <optional>
#include <string>

namespace korvane::tool {

/// Adds the option that tells where the textures of a model from standard input are.
void addBaseOption(CommandLine& line);
/// Throws WrongCall where the inputs cannot all be read: standard input serves once.
void checkStandardInput(const QStringList& inputs);
/// The same, and "--base" is for standard input alone.
void checkModelInputs(const CommandLine& line, const QStringList& inputs);

/// All of a model's text, from a file or from standard input.
struct ModelText {
    explicit ModelText(const QString& file);

    std::string bytes;
    QString name; ///< what tells the kind: that of the file, or "-.xsi" or "-.x" by the header
};

/// Refuses a model that could not be read.
[[noreturn]] void refuseModel(ReadStatus status, const QString& file, const QString& name);

/// The folder where the textures of a model are looked for, by its file and the value of "--base".
QString textureFolder(const QString& file, const QString& base);

/// What the textures of inputs share; those of a folder whose alias may come to stand for another
/// one share nothing.
std::shared_ptr<TextureStore> storeFor(const FolderAlias& folder,
                                       const std::shared_ptr<TextureStore>& shared);

/// A texture that a model names.
struct TextureFacts {
    QString file; ///< where it was found
    TextureOutcome outcome;
};

/// A model read as the editor's Open does. A file counts by its extension, what comes from standard
/// input by its header.
class ModelInput {
  public:
    /// Reads a file, or standard input with its textures in the folder `base` ("" is the current
    /// one). Inputs of one call share a store of textures. Without `pictures` all images are the
    /// 1 x 1 one. Throws Refusal.
    ModelInput(const QString& file, const QString& base,
               const std::shared_ptr<TextureStore>& store = nullptr, bool pictures = true);

    ModelDocument document;

    /// What there is of a texture, or nothing if no file is found.
    [[nodiscard]] std::optional<TextureFacts> texture(const std::string& name);

  private:
    ReadStatus readFile(const QString& file);

    FolderAlias folder_;
    TextureLoader textures_;
    TextureSource source_;
};

} // namespace korvane::tool
