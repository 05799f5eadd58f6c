#pragma once

#include "formats/xsi/XsiReader.h"
#include "model/document/ModelDocument.h"

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>

namespace korvane::tool {

/// How a command ended, as the program's exit status.
enum class ExitStatus { Done = 0, Refused = 1, Usage = 2 };

/// A subcommand: gets the words behind its name, which may hold options of its own.
using Command = ExitStatus (*)(const QStringList& words);

// The subcommands, as `korvane-tool --help` tells them.
ExitStatus info(const QStringList& words);
ExitStatus convert(const QStringList& words);
ExitStatus render(const QStringList& words);
ExitStatus texture(const QStringList& words);

/// A text of unknown origin as it may go to a terminal. Control characters, which could steer the
/// terminal, are shown as "\x1b"; a text without any stays as it is, byte by byte.
std::string printable(std::string_view text);
std::string printable(const QString& text);

/// Prints "FILE: reason" on standard error.
ExitStatus refuse(const QString& file, const QString& reason);

/// Prints the reason why a call is wrong and where help is found, in one line on standard error.
ExitStatus wrongCall(const QString& reason);

/// Whether both names lead to the same file, by whatever spelling or link.
bool isSameFile(const QString& in, const QString& out);

/// Refuses an output that is one of the inputs.
ExitStatus refuseInput(const QString& out);

/// Why a file that is no text model by its name is refused, and why one that could not be read is.
inline constexpr char notAModel[] = "Not a model file (.xsi or .x)";
QString refusalOf(ReadStatus status, const QString& file);

/// Reads a model as the editor's Open does. False, with the reason printed, when the file is
/// missing, unreadable, not valid or of another kind.
bool open(const QString& file, ModelDocument& document);

} // namespace korvane::tool
