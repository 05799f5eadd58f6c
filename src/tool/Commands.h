#pragma once

#include "model/ModelDocument.h"

#include <QImage>
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

/// Prints the reason and how to call the program on standard error.
ExitStatus usage(const QString& reason);

/// Reads a model as the editor's Open does. False, with the reason printed, when the file is
/// missing, unreadable, not valid or of another kind.
bool open(const QString& file, ModelDocument& document);

/// Writes a picture as PNG, or refuses if that fails.
ExitStatus savePng(const QImage& picture, const QString& file);

} // namespace korvane::tool
