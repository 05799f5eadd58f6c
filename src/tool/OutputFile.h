#pragma once

#include "formats/text/TextOutput.h"
#include "tool/CommandLine.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace korvane::tool {

/// Puts what `write` gives into a file, all or nothing, whatever bytes its name has, or on standard
/// output for "-". Throws Refusal or OutputFailure.
void writeOutput(const QString& out, const std::function<bool(const TextSink&)>& write);

/// One input and where its result goes.
struct Job {
    QString in;
    QString out;
};

/// Adds the option for several inputs.
void addFolderOption(CommandLine& line);

/// What a call of the form "IN OUT" or "--out-dir DIR IN..." asks for; the results of the latter
/// are named like the inputs with another extension. Throws WrongCall, or Refusal where there is no
/// such folder.
std::vector<Job> jobsOf(const CommandLine& line, const char* extension);
QStringList inputsOf(const std::vector<Job>& jobs);

/// Does the jobs, one after the other, as forEachInput does.
ExitStatus doJobs(const std::vector<Job>& jobs, const std::function<void(const Job&)>& work);

} // namespace korvane::tool
