#include "tool/ModelInput.h"

#include "formats/files/FileNames.h"
#include "model/records/ModelText.h"
#include "tool/FileName.h"

#include <QFile>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane::tool {

namespace {

constexpr char notAModel[] = "Not a model file (.xsi or .x)";

ReadStatus statusOf(InputState state) {
    return state == InputState::Missing ? ReadStatus::Missing : ReadStatus::CannotOpen;
}

/// Returns a file name for a text from standard input; empty if its first letters are not those of
/// a header.
QString nameByHeader(std::string_view text) {
    const QString start = shownText(text.substr(0, 3));
    return start.compare(QLatin1String("xsi"), Qt::CaseInsensitive) == 0   ? QStringLiteral("-.xsi")
           : start.compare(QLatin1String("xof"), Qt::CaseInsensitive) == 0 ? QStringLiteral("-.x")
                                                                           : QString();
}

} // namespace

void addBaseOption(CommandLine& line) {
    line.addValue("base", "DIR",
                  "Folder of the textures of a model from standard input; the current folder by "
                  "default.");
}

void checkStandardInput(const QStringList& inputs) {
    if (inputs.count(QStringLiteral("-")) > 1) {
        throw WrongCall(QStringLiteral("standard input can be read only once"));
    }
}

void checkModelInputs(const CommandLine& line, const QStringList& inputs) {
    checkStandardInput(inputs);
    if (!inputs.contains(QStringLiteral("-"))) {
        line.forbid({"base"}, QStringLiteral("applies only to a model from standard input, \"-\""));
    }
}

ModelText::ModelText(const QString& file) : name(file) {
    if (isStandardStream(file)) {
        bytes = readStandardInput();
        name = nameByHeader(bytes);
    } else if (!isTextModel(modelFileKind(file))) {
        name.clear();
    }
    if (name.isEmpty()) {
        throw Refusal(inputLabel(file), QString::fromLatin1(notAModel));
    }
    if (!isStandardStream(file)) {
        QFile input;
        if (const InputState state = openInput(input, file); state != InputState::Opened) {
            refuseModel(statusOf(state), file, name);
        }
        bytes = input.readAll().toStdString();
        if (input.error() != QFileDevice::NoError) {
            refuseModel(ReadStatus::CannotOpen, file, name);
        }
    }
}

void refuseModel(ReadStatus status, const QString& file, const QString& name) {
    throw Refusal(inputLabel(file), status == ReadStatus::Missing ? QStringLiteral("No such file")
                                                                  : failureCaption(status, name));
}

QString textureFolder(const QString& file, const QString& base) {
    return isStandardStream(file) ? base : parentFolder(file);
}

std::shared_ptr<TextureStore> storeFor(const FolderAlias& folder,
                                       const std::shared_ptr<TextureStore>& shared) {
    return folder.isReal() ? shared : nullptr;
}

ModelInput::ModelInput(const QString& file, const QString& base,
                       const std::shared_ptr<TextureStore>& store, bool pictures)
    : folder_(textureFolder(file, base)),
      textures_(folder_.path(), maxPicturePixels, storeFor(folder_, store)) {
    if (pictures) {
        source_ = [this](const std::string& name) { return textures_.load(name); };
    }
    ReadStatus status = ReadStatus::CannotOpen;
    QString name = file;
    if (!isStandardStream(file) && isTextModel(modelFileKind(file))) {
        status = readFile(file);
    } else {
        const ModelText text(file);
        name = text.name;
        status = readXsi(TextScanner(text.bytes), document, source_);
    }
    if (status != ReadStatus::Done) {
        refuseModel(status, file, name);
    }
    document.FileName = file;
    document.markSelection(FramePath());
}

ReadStatus ModelInput::readFile(const QString& name) {
    QFile file;
    if (const InputState state = openInput(file, name); state != InputState::Opened) {
        return statusOf(state);
    }
    const ByteSource source = [&file](std::span<char> space) {
        const qint64 got = file.read(space.data(), static_cast<qint64>(space.size()));
        if (got < 0) {
            throw std::runtime_error("the file cannot be read to its end");
        }
        return static_cast<std::size_t>(got);
    };
    TextWindow window(source, static_cast<std::size_t>(std::max<qint64>(file.size(), 0)));
    return readXsi(TextScanner(window), document, source_);
}

std::optional<TextureFacts> ModelInput::texture(const std::string& name) {
    const std::optional<FoundTexture> found = textures_.locate(shownText(name));
    return found ? std::optional(
                       TextureFacts{folder_.realName(found->file), textures_.outcome(*found)})
                 : std::nullopt;
}

} // namespace korvane::tool
