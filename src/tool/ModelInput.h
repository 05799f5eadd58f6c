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

/// Adds the option for the folder of the textures of a model from standard input.
void addBaseOption(CommandLine& line);
/// Throws WrongCall if standard input is among the inputs more than once.
void checkStandardInput(const QStringList& inputs);
/// The same, and also if "--base" is given without standard input.
void checkModelInputs(const CommandLine& line, const QStringList& inputs);

/// The whole text of a model, from a file or from standard input. The constructor throws Refusal.
struct ModelText {
    explicit ModelText(const QString& file);

    std::string bytes;
    QString name; ///< tells the kind: the file's name, or "-.xsi" or "-.x" by the header
};

/// Throws Refusal for a model that could not be read.
[[noreturn]] void refuseModel(ReadStatus status, const QString& file, const QString& name);

/// Returns the folder of a model's textures: the file's own, or `base` for standard input.
QString textureFolder(const QString& file, const QString& base);

/// Returns `shared`, or null if the folder has an alias: that may lead to another folder later.
std::shared_ptr<TextureStore> storeFor(const FolderAlias& folder,
                                       const std::shared_ptr<TextureStore>& shared);

/// A texture that a model names.
struct TextureFacts {
    QString file; ///< the file found
    TextureOutcome outcome;
};

/// A model read as the editor's Open does. The kind of a file follows from its extension, that of
/// standard input from its header.
class ModelInput {
  public:
    /// Reads a file, or standard input with its textures in the folder `base` ("" is the current
    /// one). Inputs of one call share a store of textures. Without `pictures`, every image is the
    /// blank one. Throws Refusal.
    ModelInput(const QString& file, const QString& base,
               const std::shared_ptr<TextureStore>& store = nullptr, bool pictures = true);

    ModelDocument document;

    /// Returns the facts about a texture; nullopt if no file is found.
    [[nodiscard]] std::optional<TextureFacts> texture(const std::string& name);

  private:
    ReadStatus readFile(const QString& file);

    FolderAlias folder_;
    TextureLoader textures_;
    TextureSource source_;
};

} // namespace korvane::tool
