#pragma once

#include "formats/text/TextOutput.h"

#include <QString>

#include <functional>

namespace korvane {

/// Replaces the contents of a file by what `write` puts into its sink, all or nothing: the text
/// goes into a new file beside the target, which is renamed over the target at the end. Follows
/// symbolic links. Keeps mode, owner, group, access lists and the user's own attributes of the
/// target. Overwrites a writable target in place if a new file cannot be made, given the same
/// rights or renamed. Refuses devices and pipes. Returns false on failure, with the old contents
/// kept; does not throw.
bool replaceFile(const QString& fileName, const std::function<bool(const TextSink&)>& write);

/// The same for an existing file, which is overwritten in place. If that fails, the old contents
/// are written back.
bool overwriteFile(const QString& fileName, const std::function<bool(const TextSink&)>& write);

/// The same for a file of the program's own, readable by its user only. It is replaced in one step,
/// without waiting for the disk: it survives the end of the program, but maybe not a system crash.
bool replaceOwnFile(const QString& fileName, const std::function<bool(const TextSink&)>& write);

/// The outcome of makeFile().
enum class MadeFile { Done, NameTaken, Failed };

/// Makes a new file with the rights of `rightsFrom`, as far as the system grants them, otherwise
/// for the user only. Never replaces a file, and leaves nothing behind on failure.
MadeFile makeFile(const QString& fileName, const QString& rightsFrom,
                  const std::function<bool(const TextSink&)>& write);

} // namespace korvane
