#include "tool/ModelWarnings.h"

#include "tool/FileName.h"
#include "tool/InputFile.h"
#include "tool/ModelInput.h"

namespace korvane::tool {

ModelCheck checkInput(const QString& file, const CheckRequest& request) {
    const ModelText text(file);
    ModelCheck check = checkModel(text.bytes, request);
    if (!check.refusal.isEmpty()) {
        throw Refusal(inputLabel(file), check.refusal);
    }
    if (check.status != ReadStatus::Done) {
        refuseModel(check.status, file, text.name);
    }
    check.document.FileName = file;
    return check;
}

std::string warningLine(const QString& file, const Finding& finding) {
    std::string line = printable(inputLabel(file));
    if (finding.line != 0) {
        line += ':' + std::to_string(finding.line);
    }
    line += ": warning: " + printable(finding.text) + " [";
    return line.append(findingRow(finding.id).name) += "]\n";
}

} // namespace korvane::tool
