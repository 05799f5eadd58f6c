#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <exception>
#include <functional>
#include <string_view>
#include <utility>

namespace korvane::tool {

/// The program's exit status.
enum class ExitStatus { Done = 0, Refused = 1, Usage = 2 };

/// Thrown if a call is wrong: the program reports why, and where to find help.
class WrongCall : public std::exception {
  public:
    explicit WrongCall(QString why) : reason(std::move(why)) {}
    QString reason;
};

/// Thrown if an input is refused or an output fails.
class Refusal : public std::exception {
  public:
    Refusal(QString of, QString why) : file(std::move(of)), reason(std::move(why)) {}
    QString file;
    QString reason;
};

/// Thrown if standard output fails. If its reader has gone, like `head`, the program reports
/// nothing.
class OutputFailure : public std::exception {
  public:
    explicit OutputFailure(bool readerGone) : closed(readerGone) {}
    bool closed;
};

/// Prepares the standard streams: writing to a closed pipe is an error, not a signal, and no file
/// that is opened takes the place of a stream that the caller has closed.
void guardStandardStreams();

/// Writes text or bytes to standard output. Throws OutputFailure.
void print(std::string_view text);
/// Flushes standard output. Throws OutputFailure.
void finishOutput();

/// Prints a line, which includes its line end, to standard error.
void report(std::string_view line);
/// Prints "FILE: reason" to standard error.
void reportRefusal(const QString& file, const QString& reason);

/// Calls `work` with the number of each input. A refusal does not stop the others: it is reported,
/// and the status returned is Refused. With `count`, shows the progress on standard error if that
/// is a terminal.
ExitStatus forEachInput(const QStringList& inputs, bool count,
                        const std::function<void(qsizetype)>& work);

} // namespace korvane::tool
