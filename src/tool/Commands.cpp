#include "tool/Commands.h"

#include "formats/FileNames.h"
#include "formats/XsiReader.h"

#include <cstdio>

namespace korvane::tool {

ExitStatus refuse(const QString& file, const QString& reason) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(file), qPrintable(reason));
    return ExitStatus::Refused;
}

ExitStatus usage(const QString& reason) {
    std::fprintf(
        stderr,
        "korvane-tool: %s\n"
        "usage: korvane-tool info FILE...            what the models hold\n"
        "       korvane-tool convert IN OUT.xsi [--repeat N]\n"
        "                                            save a model as dotXSI; N times, with the\n"
        "                                            median times of loading and saving\n"
        "       korvane-tool texture IN OUT.png      a texture as the editor decodes it\n",
        qPrintable(reason));
    return ExitStatus::Usage;
}

bool open(const QString& file, ModelDocument& document) {
    if (!isTextModelName(file)) {
        refuse(file, QStringLiteral("Not a model file (.xsi or .x)"));
        return false;
    }
    const ReadStatus status = FileOpenXSI(file, document);
    if (status == ReadStatus::Done) {
        return true;
    }
    refuse(file, status == ReadStatus::Missing ? QStringLiteral("No such file")
                                               : failureCaption(status, file));
    return false;
}

} // namespace korvane::tool
