#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace korvane::tool {

// The file system allows any bytes in a name, but options, messages and paths of the toolkit are
// text. A name travels through them as text in which each byte that is no part of valid UTF-8 is
// a lone surrogate, U+DC00 and the byte: the way back gives the same bytes.

/// A name as the system gave it.
QString nameFromBytes(std::string_view bytes);
/// The bytes that a name stands for.
std::string nameBytes(const QString& name);
/// Whether the toolkit can spell the name: its bytes are valid UTF-8, and so are those of the
/// current folder if it counts from there.
bool isPlainName(const QString& name);

/// "-", which stands for standard input or standard output.
bool isStandardStream(const QString& name);

/// What follows the last separator, without its extension: the name that results of several files
/// go by.
QString baseName(const QString& name);

/// A text of unknown origin as it may go to a terminal. Control characters, which could steer the
/// terminal, are shown as "\x1b"; a text without any stays as it is, byte by byte.
std::string printable(std::string_view text);
/// A name, whose bytes stay as they are but for control characters.
std::string printable(const QString& name);

} // namespace korvane::tool
