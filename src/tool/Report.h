#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <exception>
#include <functional>
#include <string_view>
#include <utility>

namespace korvane::tool {

/// How a command ended, as the program's exit status.
enum class ExitStatus { Done = 0, Refused = 1, Usage = 2 };

/// Thrown where a call makes no sense: the program says why, and where help is found.
class WrongCall : public std::exception {
  public:
    explicit WrongCall(QString why) : reason(std::move(why)) {}
    QString reason;
};

/// Thrown where an input is refused or an output fails.
class Refusal : public std::exception {
  public:
    Refusal(QString of, QString why) : file(std::move(of)), reason(std::move(why)) {}
    QString file;
    QString reason;
};

/// Thrown where standard output takes no more. A reader that has gone, as `head` does, is no news.
class OutputFailure : public std::exception {
  public:
    explicit OutputFailure(bool readerGone) : closed(readerGone) {}
    bool closed;
};

/// Prepares the standard streams: a closed pipe is an error of the write, and a stream that the
/// caller has closed never becomes that of a file.
void guardStandardStreams();

/// Puts text or bytes on standard output.
void print(std::string_view text);
/// Hands on what standard output holds back; its failures show now at the latest.
void finishOutput();

/// Prints a line, with its end, on standard error.
void tell(std::string_view line);
/// Prints "FILE: reason" on standard error.
void complain(const QString& file, const QString& reason);

/// Does the work for each of several inputs, by its number. What refuses one does not stop the
/// others: it is told and makes the status. With `count` a line of standard error counts along if
/// that is a terminal.
ExitStatus forEachInput(const QStringList& inputs, bool count,
                        const std::function<void(qsizetype)>& work);

} // namespace korvane::tool
