#include "edit/session/DocumentSession.h"
#include "formats/files/FileNames.h"
#include "formats/xsi/XsiWriter.h"
#include "tool/Commands.h"
#include "tool/Timing.h"

#include <QCommandLineParser>

#include <limits>
#include <utility>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korvane::tool {

namespace {

/// Lets each round reuse the memory of the one before: otherwise the system takes it back and hands
/// it out again, which is a fifth of the time of a load and not what the medians are meant to tell.
void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int largestKept = 32 << 20;
    mallopt(M_MMAP_THRESHOLD, largestKept);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
#endif
}

ExitStatus convertOnce(const QString& in, const QString& out, double& load, double& save) {
    const Clock::time_point start = Clock::now();
    DocumentSession session;
    if (const OpenOutcome opened = session.open(in); opened.status != ReadStatus::Done) {
        return refuse(in, refusalOf(opened.status, in));
    }
    load = millisecondsSince(start);
    const Clock::time_point loaded = Clock::now();
    if (session.saveAs(out).result != SaveResult::Written) {
        return refuse(out, QString::fromLatin1(saveFailureCaption));
    }
    save = millisecondsSince(loaded);
    return ExitStatus::Done;
}

} // namespace

ExitStatus convert(const QStringList& words) {
    const QCommandLineOption repeat(QStringLiteral("repeat"), {}, QStringLiteral("N"));
    QCommandLineParser parser;
    parser.addOption(repeat);
    if (!parser.parse(QStringList(QStringLiteral("convert")) + words)) {
        return wrongCall(parser.errorText());
    }
    const QStringList files = parser.positionalArguments();
    bool valid = true;
    const int rounds = parser.isSet(repeat) ? parser.value(repeat).toInt(&valid) : 1;
    if (files.size() != 2 || !valid || rounds < 1) {
        return wrongCall(
            QStringLiteral("convert needs IN and OUT.xsi, and a number above 0 to repeat"));
    }
    if (modelFileKind(files[1]) != ModelFileKind::Xsi) {
        return wrongCall(QStringLiteral("the name of the output must end in .xsi"));
    }
    if (!isTextModel(modelFileKind(files[0]))) {
        return refuse(files[0], QString::fromLatin1(notAModel));
    }
    if (isSameFile(files[0], files[1]) && modelFileKind(files[0]) != ModelFileKind::Xsi) {
        return refuseInput(files[1]);
    }
    if (rounds > 1) {
        keepFreedMemory();
    }
    std::vector<double> loads;
    std::vector<double> saves;
    for (int round = 0; round < rounds; ++round) {
        const ExitStatus status =
            convertOnce(files[0], files[1], loads.emplace_back(), saves.emplace_back());
        if (status != ExitStatus::Done) {
            return status;
        }
    }
    if (parser.isSet(repeat)) {
        printMedian("load", std::move(loads));
        printMedian("save", std::move(saves));
    }
    return ExitStatus::Done;
}

} // namespace korvane::tool
