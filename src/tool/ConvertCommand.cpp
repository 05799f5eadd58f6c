#include "formats/files/FileNames.h"
#include "formats/xsi/FrameNames.h"
#include "formats/xsi/XsiWriter.h"
#include "model/records/FrameWalk.h"
#include "model/records/ModelText.h"
#include "tool/Commands.h"
#include "tool/FileName.h"
#include "tool/InputFile.h"
#include "tool/ModelInput.h"
#include "tool/OutputFile.h"
#include "tool/Timing.h"

#include <limits>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korvane::tool {

namespace {

struct ConvertRequest {
    QString base;
    bool strict = false;
    std::optional<int> repeat;
};

/// Lets each round reuse the memory of the one before: otherwise the system takes it back and hands
/// it out again, which is a fifth of the time of a load and not what the medians are meant to tell.
void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int largestKept = 32 << 20;
    mallopt(M_MMAP_THRESHOLD, largestKept);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
#endif
}

/// What a reading of the saved file would not give back, one sentence each.
QStringList lossesOf(const ModelDocument& document) {
    QStringList losses;
    std::set<QString> told;
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        const FrameRecord& frame = walk.frame();
        const QString reason = lostNameReason(frame.Name, nameUse(frame, walk.depth() == 0));
        const QString loss = QStringLiteral("The name \"%1\" will not come back: it %2")
                                 .arg(shownText(frame.Name), reason);
        if (!reason.isEmpty() && told.insert(loss).second) {
            losses += loss;
        }
    }
    return losses;
}

/// Tells what is lost on the way; with "--strict" nothing may be.
void tellLosses(const ModelDocument& document, const ConvertRequest& request, const Job& job) {
    const QStringList losses = lossesOf(document);
    for (const QString& loss : losses) {
        complain(inputLabel(job.in), QStringLiteral("warning: ") + loss);
    }
    if (request.strict && !losses.isEmpty()) {
        throw Refusal(job.out, QStringLiteral("Not written, as something would be lost"));
    }
}

/// Open, and then Save As: the reader and the writer are those of the editor.
void convertOnce(const ConvertRequest& request, const Job& job, bool first, double& load,
                 double& save) {
    const Clock::time_point start = Clock::now();
    const ModelInput model(job.in, request.base);
    load = millisecondsSince(start);
    if (first) {
        tellLosses(model.document, request, job);
    }
    const Clock::time_point loaded = Clock::now();
    writeOutput(job.out, [&model](const TextSink& sink) { return writeXsi(model.document, sink); });
    save = millisecondsSince(loaded);
}

void convertFile(const ConvertRequest& request, const InputFiles& inputs, const Job& job) {
    if (modelFileKind(job.in) == ModelFileKind::Xsi && !isStandardStream(job.out)) {
        inputs.keepFrom(job.out, job.in);
    } else {
        inputs.keepFrom(job.out);
    }
    const int rounds = request.repeat.value_or(1);
    std::vector<double> loads;
    std::vector<double> saves;
    for (int round = 0; round < rounds; ++round) {
        convertOnce(request, job, round == 0, loads.emplace_back(), saves.emplace_back());
    }
    if (request.repeat) {
        printMedian("load", std::move(loads));
        printMedian("save", std::move(saves));
    }
}

void addOptions(CommandLine& line) {
    addFolderOption(line);
    line.addFlag("strict", "Write nothing where something of the model would be lost.");
    addBaseOption(line);
    addRepeatOption(line, "Load and save so often and print the median times in milliseconds.");
}

ExitStatus convert(const CommandLine& line) {
    const std::vector<Job> jobs = jobsOf(line, ".xsi");
    checkModelInputs(line, inputsOf(jobs));
    const QString& out = jobs.front().out;
    if (!isStandardStream(out) && modelFileKind(out) != ModelFileKind::Xsi) {
        throw WrongCall(QStringLiteral("the name of the output must end in .xsi"));
    }
    const ConvertRequest request = {line.value("base"), line.isSet("strict"),
                                    repeatCount(line, jobs.front())};
    if (request.repeat.value_or(1) > 1) {
        keepFreedMemory();
    }
    const InputFiles inputs(inputsOf(jobs));
    return doJobs(jobs, [&](const Job& job) { convertFile(request, inputs, job); });
}

} // namespace

const Command convertCommand = {
    "convert",
    "save models as dotXSI",
    "Usage: korvane-tool convert [OPTION...] IN OUT.xsi\n"
    "       korvane-tool convert [OPTION...] --out-dir DIR IN...",
    "Saves models (.xsi, .x) as dotXSI, as Open and Save As of the editor do. What the\n"
    "saved file will not give back is told on standard error. \"-\" is standard input or\n"
    "output. An input is never overwritten, but for a .xsi file saved onto itself.",
    addOptions,
    convert};

} // namespace korvane::tool
