#include "formats/files/FileNames.h"
#include "formats/xsi/XsiWriter.h"
#include "tool/Commands.h"
#include "tool/FileName.h"
#include "tool/InputFile.h"
#include "tool/ModelInput.h"
#include "tool/ModelWarnings.h"
#include "tool/OutputFile.h"
#include "tool/Timing.h"

#include <cstdio>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korvane::tool {

namespace {

struct ConvertRequest {
    bool strict = false;
    std::optional<int> repeat;
};

/// Lets each round reuse the memory of the one before. Otherwise, returning it to the system and
/// getting it back takes a fifth of a load, which the medians are not meant to measure.
void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int largestKept = 32 << 20;
    mallopt(M_MMAP_THRESHOLD, largestKept);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
#endif
}

/// Reports losses; with "--strict", any is a refusal.
void reportLosses(const ModelCheck& check, const ConvertRequest& request, const Job& job) {
    for (const Finding& finding : check.findings) {
        report(warningLine(job.in, finding));
    }
    if (request.strict && !check.findings.empty()) {
        throw Refusal(job.out, QStringLiteral("Not written: something would be lost"));
    }
}

void save(const ModelDocument& document, const QString& out) {
    writeOutput(out, [&document](const TextSink& sink) { return writeXsi(document, sink); });
}

/// Repeats what Open and Save As of the editor do, and times it.
void convertRepeatedly(const Job& job, int rounds) {
    std::vector<double> loads;
    std::vector<double> saves;
    for (int round = 0; round < rounds; ++round) {
        const Clock::time_point start = Clock::now();
        const ModelInput model(job.in, {});
        loads.push_back(millisecondsSince(start));
        const Clock::time_point loaded = Clock::now();
        save(model.document, job.out);
        saves.push_back(millisecondsSince(loaded));
    }
    printMedian("load", std::move(loads));
    printMedian("save", std::move(saves));
}

void convertFile(const ConvertRequest& request, const InputFiles& inputs, const Job& job) {
    if (modelFileKind(job.in) == ModelFileKind::Xsi && !isStandardStream(job.out)) {
        inputs.refuseOverwriting(job.out, job.in);
    } else {
        inputs.refuseOverwriting(job.out);
    }
    ModelCheck check = checkInput(job.in, {.hazards = false});
    std::erase_if(check.findings, [](const Finding& finding) { return !isLoss(finding); });
    reportLosses(check, request, job);
    if (request.repeat) {
        convertRepeatedly(job, *request.repeat);
    } else {
        save(check.document, job.out);
    }
}

void addOptions(CommandLine& line) {
    addFolderOption(line);
    line.addFlag("strict", "Write nothing if anything would be lost.");
    addRepeatOption(line, "Load and save N times, and print the median times in milliseconds.");
}

ExitStatus convert(const CommandLine& line) {
    const std::vector<Job> jobs = jobsOf(line, ".xsi");
    checkStandardInput(inputsOf(jobs));
    const QString& out = jobs.front().out;
    if (!isStandardStream(out) && modelFileKind(out) != ModelFileKind::Xsi) {
        throw WrongCall(QStringLiteral("the name of the output must end in .xsi"));
    }
    const ConvertRequest request = {line.isSet("strict"), repeatCount(line, jobs.front())};
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
    "Saves models (.xsi, .x) as dotXSI, like Open and then Save As in the editor.\n"
    "Losses are reported on standard error. \"-\" is standard input or output. An input\n"
    "is never overwritten, except a .xsi file saved onto itself.",
    addOptions,
    convert};

} // namespace korvane::tool
