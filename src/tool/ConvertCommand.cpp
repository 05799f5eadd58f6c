#include "formats/XsiReader.h"
#include "formats/XsiWriter.h"
#include "tool/Commands.h"

namespace korvane::tool {

ExitStatus convert(const QStringList& words) {
    if (words.size() != 2) {
        return usage(QStringLiteral("convert needs IN and OUT.xsi"));
    }
    const QString& in = words[0];
    const QString& out = words[1];
    if (upperExtension(out) != QStringLiteral(".XSI")) {
        return usage(QStringLiteral("the name of the output must end in .xsi"));
    }
    ModelDocument document;
    if (!open(in, document)) {
        return ExitStatus::Refused;
    }
    return SaveFileXSI(document, out) ? ExitStatus::Done
                                      : refuse(out, QString::fromLatin1(saveFailureCaption));
}

} // namespace korvane::tool
