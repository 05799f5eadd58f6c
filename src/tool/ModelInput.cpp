#include "tool/ModelInput.h"

#include "formats/files/FileNames.h"
#include "model/records/ModelText.h"
#include "tool/FileName.h"

#include <QDir>
#include <QFile>

#include <stdexcept>
#include <utility>

namespace korvane::tool {

namespace {

constexpr char notAModel[] = "Not a model file (.xsi or .x)";

ReadStatus statusOf(InputState state) {
    return state == InputState::Missing ? ReadStatus::Missing : ReadStatus::CannotOpen;
}

/// What a text from standard input would be called as a file; empty where its first letters are
/// those of no header.
QString nameByHeader(std::string_view text) {
    const QString start = shownText(text.substr(0, 3));
    return start.compare(QLatin1String("xsi"), Qt::CaseInsensitive) == 0   ? QStringLiteral("-.xsi")
           : start.compare(QLatin1String("xof"), Qt::CaseInsensitive) == 0 ? QStringLiteral("-.x")
                                                                           : QString();
}

} // namespace

void addBaseOption(CommandLine& line) {
    line.addValue("base", "DIR",
                  "Where the textures of a model from standard input are looked for; else that is "
                  "the current folder.");
}

void checkModelInputs(const CommandLine& line, const QStringList& inputs) {
    const qsizetype piped = inputs.count(QStringLiteral("-"));
    if (piped > 1) {
        throw WrongCall(QStringLiteral("standard input can be read only once"));
    }
    if (piped == 0) {
        line.forbid({"base"}, QStringLiteral("is for a model from standard input, \"-\""));
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

ModelInput::ModelInput(const QString& file, const QString& base,
                       std::shared_ptr<TextureStore> store)
    : folder_(textureFolder(file, base)),
      textures_(folder_.path(), mostPicturePixels, std::move(store)) {
    ReadStatus status = ReadStatus::CannotOpen;
    QString name = file;
    if (!isStandardStream(file) && isTextModel(modelFileKind(file))) {
        status = readFile(file);
    } else {
        const ModelText text(file);
        name = text.name;
        status = readXsi(TextScanner(text.bytes), document,
                         [this](const std::string& texture) { return textures_.load(texture); });
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
    return readXsi(TextScanner(window), document,
                   [this](const std::string& texture) { return textures_.load(texture); });
}

std::optional<QString> ModelInput::textureFile(const std::string& texture) {
    const std::optional<QString> found = textures_.find(shownText(texture));
    return found ? std::optional(folder_.realName(*found)) : std::nullopt;
}

} // namespace korvane::tool
