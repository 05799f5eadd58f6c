#include "tool/OutputFile.h"

#include "formats/files/AtomicFile.h"
#include "formats/xsi/XsiWriter.h"
#include "tool/FileName.h"
#include "tool/InputFile.h"

#include <QSet>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace korvane::tool {

namespace {

/// Returns the existing file that a link leads to, otherwise the name itself.
QString linkedFile(const QString& name) {
    struct stat about = {};
    if (lstat(nameBytes(name).c_str(), &about) != 0 || !S_ISLNK(about.st_mode)) {
        return name;
    }
    const std::unique_ptr<char, decltype(&std::free)> real(
        realpath(nameBytes(name).c_str(), nullptr), &std::free);
    return real ? nameFromBytes(real.get()) : name;
}

/// Replaces a file whose name the toolkit cannot spell: makes a second link to it that it can,
/// replaces that, rights and all, and renames it to the first.
bool replaceOddName(const QString& name, const std::function<bool(const TextSink&)>& write) {
    const FolderAlias folder(parentFolder(name));
    const std::string target = nameBytes(name);
    const QString link = folder.path() + QStringLiteral("/.korvane-tool-%1").arg(getpid());
    const std::string linkBytes = nameBytes(link);
    struct stat about = {};
    const bool exists = stat(target.c_str(), &about) == 0;
    if (exists && (!S_ISREG(about.st_mode) || ::link(target.c_str(), linkBytes.c_str()) != 0)) {
        return false;
    }
    const bool replaced =
        replaceFile(link, write) && std::rename(linkBytes.c_str(), target.c_str()) == 0;
    unlink(linkBytes.c_str()); // left behind by a failure or an overwrite in place
    return replaced;
}

} // namespace

void writeOutput(const QString& out, const std::function<bool(const TextSink&)>& write) {
    if (isStandardStream(out)) {
        const bool written = write([](std::string_view piece) {
            print(piece);
            return true;
        });
        if (!written) {
            throw OutputFailure(false);
        }
        return;
    }
    const QString file = linkedFile(out);
    if (!(isPlainName(file) ? replaceFile(out, write) : replaceOddName(file, write))) {
        throw Refusal(out, QString::fromLatin1(saveFailureCaption));
    }
}

void addFolderOption(CommandLine& line) {
    line.addValue("out-dir", "DIR",
                  "Accept any number of inputs, and write the results to this folder under the "
                  "names of the inputs.");
}

std::vector<Job> jobsOf(const CommandLine& line, const char* extension) {
    const QStringList files = line.operands();
    if (!line.isSet("out-dir")) {
        if (files.size() != 2) {
            throw WrongCall(
                QStringLiteral("expected an input and an output, or --out-dir and inputs"));
        }
        return {{files[0], files[1]}};
    }
    if (files.isEmpty()) {
        throw WrongCall(QStringLiteral("no input given"));
    }
    const QString folder = line.value("out-dir");
    std::vector<Job> jobs;
    QSet<QString> bases;
    for (const QString& file : files) {
        const QString base = baseName(file);
        if (isStandardStream(file)) {
            throw WrongCall(QStringLiteral("standard input cannot be used with --out-dir"));
        }
        if (bases.contains(base)) {
            throw WrongCall(QStringLiteral("two results would have the name \"%1%2\"")
                                .arg(base, QLatin1String(extension)));
        }
        bases.insert(base);
        jobs.push_back({file, folder + u'/' + base + QLatin1String(extension)});
    }
    struct stat about = {};
    if (stat(nameBytes(folder).c_str(), &about) != 0 || !S_ISDIR(about.st_mode)) {
        throw Refusal(folder, QStringLiteral("No such folder"));
    }
    return jobs;
}

QStringList inputsOf(const std::vector<Job>& jobs) {
    QStringList inputs;
    for (const Job& job : jobs) {
        inputs += job.in;
    }
    return inputs;
}

ExitStatus doJobs(const std::vector<Job>& jobs, const std::function<void(const Job&)>& work) {
    return forEachInput(inputsOf(jobs), jobs.size() > 1,
                        [&](qsizetype i) { work(jobs[static_cast<std::size_t>(i)]); });
}

} // namespace korvane::tool
