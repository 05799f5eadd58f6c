#pragma once

#include "formats/text/TextOutput.h"
#include "tool/CommandLine.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace korvane::tool {

/// Writes the output of `write` to a file, all or nothing, whatever bytes its name has, or to
/// standard output for "-". Throws Refusal or OutputFailure.
void writeOutput(const QString& out, const std::function<bool(const TextSink&)>& write);

/// An input and the name of its result.
struct Job {
    QString in;
    QString out;
};

/// Adds the option for several inputs.
void addFolderOption(CommandLine& line);

/// Returns the jobs of a call of the form "IN OUT" or "--out-dir DIR IN..."; results of the latter
/// have the names of the inputs with another extension. Throws WrongCall, or Refusal if there is no
/// such folder.
std::vector<Job> jobsOf(const CommandLine& line, const char* extension);
QStringList inputsOf(const std::vector<Job>& jobs);

/// Does the jobs in turn, as forEachInput does.
ExitStatus doJobs(const std::vector<Job>& jobs, const std::function<void(const Job&)>& work);

} // namespace korvane::tool
