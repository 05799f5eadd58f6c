#include "tool/Commands.h"
#include "tool/FileName.h"
#include "tool/InfoJson.h"
#include "tool/InfoText.h"
#include "tool/InputFile.h"
#include "tool/Json.h"

#include <memory>

namespace korvane::tool {

namespace {

void addOptions(CommandLine& line) {
    line.addFlag("json", "Print one JSON document for all files.");
    addBaseOption(line);
}

ExitStatus info(const CommandLine& line) {
    const QStringList files = line.operands();
    if (files.isEmpty()) {
        throw WrongCall(QStringLiteral("no file given"));
    }
    checkModelInputs(line, files);
    const QString base = line.value("base");
    const auto store = std::make_shared<TextureStore>();
    if (line.isSet("json")) {
        return printFiles(infoVersion, files, [&](const QString& file) {
            ModelInput model(file, base, store, false);
            return modelJson(model.document, ModelFacts(model));
        });
    }
    return forEachInput(files, false, [&](qsizetype i) {
        ModelInput model(files[i], base, store, false);
        printModel(inputLabel(files[i]), model);
    });
}

} // namespace

const Command infoCommand = {
    "info",
    "show what models contain",
    "Usage: korvane-tool info [OPTION...] FILE...",
    "Shows what models (.xsi, .x) contain: their structure as in the editor, bounds,\n"
    "materials with their textures, and animations. \"-\" is standard input.",
    addOptions,
    info};

} // namespace korvane::tool
