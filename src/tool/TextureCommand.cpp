#include "formats/files/ByteReader.h"
#include "formats/files/FileNames.h"
#include "formats/textures/TextureDecoding.h"
#include "formats/textures/TextureLoader.h"
#include "formats/textures/TexturePicture.h"
#include "model/records/ModelText.h"
#include "tool/Commands.h"
#include "tool/FileName.h"
#include "tool/InputFile.h"
#include "tool/PictureOutput.h"

#include <QFile>

#include <utility>

namespace korvane::tool {

namespace {

/// Decodes bytes by the extension of their kind. On failure, throws Refusal for `file`: the white
/// pixel that views show instead is no picture.
TextureImage decoded(const QByteArray& bytes, const QString& extension, const QString& file) {
    DecodedTexture texture = decodeTexture(bytesOf(bytes), extension);
    if (!texture.refusal.empty()) {
        throw Refusal(inputLabel(file),
                      QStringLiteral("Cannot be decoded: ") + shownText(texture.refusal));
    }
    return std::move(texture.image);
}

/// Finds a file as the textures of models are found; returns the name itself if there is none.
QString foundFile(const QString& name) {
    const FolderAlias folder(parentFolder(name));
    const QString last = name.mid(name.lastIndexOf(u'/') + 1);
    if (isStandardStream(name) || !last.isValidUtf16()) {
        return name;
    }
    const std::optional<QString> found =
        TextureLoader(folder.path()).find(isPlainName(name) ? name : folder.path() + u'/' + last);
    return found ? folder.realName(*found) : name;
}

/// Reads a picture from a file, or from standard input with the extension `type`.
TextureImage readTexture(const QString& file, const QString& type) {
    if (isStandardStream(file)) {
        const std::string bytes = readStandardInput();
        return decoded(QByteArray::fromStdString(bytes), type, file);
    }
    QFile input;
    if (const InputState state = openInput(input, file); state != InputState::Opened) {
        throw Refusal(file, state == InputState::Missing ? QStringLiteral("No such file")
                                                         : QStringLiteral("Unable to open file"));
    }
    return decoded(input.readAll(), upperExtension(file), file);
}

void addOptions(CommandLine& line) {
    addFolderOption(line);
    line.addValue("type", "TYPE", "Type of the texture on standard input: pic, tga, bmp or ico.");
    addFormatOption(line);
}

/// Returns the kind of the picture on standard input, as an extension.
QString pipedType(const CommandLine& line, const QString& in) {
    const QStringList types = {QStringLiteral("pic"), QStringLiteral("tga"), QStringLiteral("bmp"),
                               QStringLiteral("ico")};
    if (!isStandardStream(in)) {
        line.forbid({"type"},
                    QStringLiteral("applies only to a texture from standard input, \"-\""));
        return {};
    }
    const auto type = line.choice("type", types);
    if (!type) {
        throw WrongCall(QStringLiteral("a texture from standard input needs --type"));
    }
    return u'.' + types[static_cast<qsizetype>(*type)].toUpper();
}

ExitStatus texture(const CommandLine& line) {
    std::vector<Job> jobs = jobsOf(line, ".png");
    const QString type = pipedType(line, jobs.front().in);
    checkPictureOutput(line, jobs.front().out);
    QStringList files;
    for (Job& job : jobs) {
        files += job.in = foundFile(job.in);
    }
    const InputFiles inputs(files);
    return doJobs(jobs, [&](const Job& job) {
        inputs.refuseOverwriting(job.out);
        const TextureImage image = readTexture(job.in, type);
        savePng(imageOf(image), job.out);
    });
}

} // namespace

const Command textureCommand = {
    "texture",
    "save textures as the editor decodes them",
    "Usage: korvane-tool texture [OPTION...] IN OUT.png\n"
    "       korvane-tool texture [OPTION...] --out-dir DIR IN...",
    "Saves textures (.pic, .tga, .bmp, .ico) as the editor decodes them. They are\n"
    "found like those of a model: in any letter case, and without an extension as\n"
    ".pic, .tga or .bmp. \"-\" is standard input or output.",
    addOptions,
    texture};

} // namespace korvane::tool
