#include "tool/Commands.h"
#include "tool/InfoText.h"
#include "tool/InputFile.h"

namespace korvane::tool {

namespace {

void addOptions(CommandLine& line) {
    addBaseOption(line);
}

ExitStatus info(const CommandLine& line) {
    const QStringList files = line.operands();
    if (files.isEmpty()) {
        throw WrongCall(QStringLiteral("a file is needed"));
    }
    checkModelInputs(line, files);
    const QString base = line.value("base");
    return forEachInput(files, false, [&](qsizetype i) {
        ModelInput model(files[i], base);
        printModel(inputLabel(files[i]), model);
    });
}

} // namespace

const Command infoCommand = {
    "info",
    "tell what models hold",
    "Usage: korvane-tool info [OPTION...] FILE...",
    "Tells what models (.xsi, .x) hold: their structure as the editor shows it, bounds,\n"
    "materials with their textures, and animations. \"-\" is standard input.",
    addOptions,
    info};

} // namespace korvane::tool
