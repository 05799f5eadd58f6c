#pragma once

#include "formats/text/TextOutput.h"

#include <QString>

#include <functional>

namespace korvane {

/// Replaces the contents of a file by what `write` puts into its sink, all or nothing: the text
/// goes into a file beside the target, which takes the target's place at the end. Symbolic links
/// are followed. Mode, owner, group, access lists and the user's own attributes of the target are
/// kept. A writable file is overwritten where no other can be made, have its rights or take its
/// place. Devices and pipes are refused. False on failure, with the old file as it was; nothing is
/// thrown.
bool replaceFile(const QString& fileName, const std::function<bool(const TextSink&)>& write);

/// The same for a file that is there and keeps its place: the new contents are written over the old
/// ones, which are written back when that fails.
bool overwriteFile(const QString& fileName, const std::function<bool(const TextSink&)>& write);

/// The same for a file of the program's own, which is for its user alone. It takes its place in one
/// step or not at all, and nobody waits for the disk: it outlives the program, but maybe not the
/// machine.
bool replaceOwnFile(const QString& fileName, const std::function<bool(const TextSink&)>& write);

/// How the making of a new file ended.
enum class MadeFile { Done, NameTaken, Failed };

/// Makes a file where there is none of that name, with the rights of another as far as the system
/// gives them, else for the user alone. Nothing is left of one that fails.
MadeFile makeFile(const QString& fileName, const QString& rightsFrom,
                  const std::function<bool(const TextSink&)>& write);

} // namespace korvane
