#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace korvane::tool {

// The file system allows any bytes in a name, but options, messages and paths of the toolkit are
// text. In the text of a name, each byte that is not part of valid UTF-8 is a lone surrogate,
// U+DC00 plus the byte. Converting back restores the bytes.

/// Returns the text for a name as the system gave it.
QString nameFromBytes(std::string_view bytes);
/// Returns the bytes that a name stands for.
std::string nameBytes(const QString& name);
/// Returns true if the toolkit can spell the name: its bytes are valid UTF-8, and so are those of
/// the current folder if the name is relative.
bool isPlainName(const QString& name);

/// Returns true for "-", which stands for standard input or output.
bool isStandardStream(const QString& name);

/// Returns the file name without folder and extension, from which the results of several inputs get
/// their names.
QString baseName(const QString& name);

/// Returns a text of unknown origin as it may go to a terminal. Control characters, which could
/// steer the terminal, become "\x1b" and the like; a text without any keeps its bytes.
std::string printable(std::string_view text);
/// The same for a name, whose other bytes are kept.
std::string printable(const QString& name);

} // namespace korvane::tool
