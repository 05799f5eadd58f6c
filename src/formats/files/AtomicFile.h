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

} // namespace korvane
