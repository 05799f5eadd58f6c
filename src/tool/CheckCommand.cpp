#include "tool/Commands.h"
#include "tool/FileName.h"
#include "tool/InputFile.h"
#include "tool/Json.h"
#include "tool/ModelInput.h"
#include "tool/ModelWarnings.h"

#include <memory>
#include <string>

namespace korvane::tool {

namespace {

/// Increases when a member of the document goes or changes its meaning.
constexpr int checkVersion = 1;

const char* kindName(FindingKind kind) {
    switch (kind) {
    case FindingKind::LostInReading:
        return "lost in reading";
    case FindingKind::LostBySave:
        return "lost by a save";
    case FindingKind::Hazard:
        break;
    }
    return "hazard";
}

QJsonObject findingJson(const Finding& finding) {
    const FindingRow& row = findingRow(finding.id);
    QJsonObject object;
    addName(object, QStringLiteral("id"), row.name);
    object.insert(QStringLiteral("kind"), QString::fromLatin1(kindName(row.kind)));
    object.insert(QStringLiteral("line"),
                  finding.line == 0 ? QJsonValue() : QJsonValue(static_cast<qint64>(finding.line)));
    addName(object, QStringLiteral("text"), finding.text);
    return object;
}

/// Checks the files of one call, which share a store of textures.
class Checker {
  public:
    explicit Checker(QString base) : base_(std::move(base)) {}

    std::vector<Finding> check(const QString& file) {
        const FolderAlias folder(textureFolder(file, base_));
        TextureLoader textures(folder.path(), maxPicturePixels, storeFor(folder, store_));
        std::vector<Finding> findings = checkInput(file, {.textures = &textures}).findings;
        found_ = found_ || !findings.empty();
        return findings;
    }
    /// Returns true if any file has findings.
    [[nodiscard]] bool found() const { return found_; }

  private:
    QString base_;
    std::shared_ptr<TextureStore> store_ = std::make_shared<TextureStore>();
    bool found_ = false;
};

ExitStatus printWarnings(const QStringList& files, Checker& checker) {
    return forEachInput(files, false, [&](qsizetype i) {
        for (const Finding& finding : checker.check(files[i])) {
            print(warningLine(files[i], finding));
        }
    });
}

ExitStatus printDocument(const QStringList& files, Checker& checker) {
    return printFiles(checkVersion, files, [&](const QString& file) {
        QJsonArray findings;
        for (const Finding& finding : checker.check(file)) {
            findings.append(findingJson(finding));
        }
        return QJsonObject{{QStringLiteral("findings"), findings}};
    });
}

ExitStatus explain(const CommandLine& line) {
    const QString name = line.value("explain");
    const FindingRow* row = findingRow(name.toStdString());
    if (row == nullptr || !line.operands().isEmpty()) {
        throw WrongCall(row == nullptr ? QStringLiteral("no warning has the id \"%1\"").arg(name)
                                       : QStringLiteral("--explain takes no files"));
    }
    print(std::string(row->name) + " (" + kindName(row->kind) + ")\n");
    print(std::string(row->explanation) + '\n');
    return ExitStatus::Done;
}

void addOptions(CommandLine& line) {
    line.addFlag("json", "Print one JSON document for all files.");
    line.addFlag("strict", "Exit with status 1 if there are warnings.");
    line.addValue("explain", "ID", "Explain the warning with this id.");
    addBaseOption(line);
}

ExitStatus check(const CommandLine& line) {
    if (line.isSet("explain")) {
        line.forbid({"json", "strict", "base"}, QStringLiteral("cannot be used with --explain"));
        return explain(line);
    }
    const QStringList files = line.operands();
    if (files.isEmpty()) {
        throw WrongCall(QStringLiteral("no file given"));
    }
    checkModelInputs(line, files);
    Checker checker(line.value("base"));
    const ExitStatus status =
        line.isSet("json") ? printDocument(files, checker) : printWarnings(files, checker);
    return checker.found() && line.isSet("strict") ? ExitStatus::Refused : status;
}

} // namespace

const Command checkCommand = {
    "check",
    "report what models lose, and possible problems",
    "Usage: korvane-tool check [OPTION...] FILE...\n"
    "       korvane-tool check --explain ID",
    "Reports what the editor ignores when it reads the models (.xsi, .x), what saving\n"
    "would lose, and possible problems, as \"FILE:LINE: warning: text [id]\" on\n"
    "standard output. \"-\" is standard input.",
    addOptions,
    check};

} // namespace korvane::tool
