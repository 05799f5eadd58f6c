#pragma once

#include "formats/files/FileState.h"

#include <QString>

#include <optional>

namespace korvane {

/// What has become of a file that another program saved under a model's name.
struct OtherSave {
    enum class Fate {
        None,    ///< no other program has saved there
        Kept,    ///< it was copied beside the file
        NotKept, ///< it could not be copied
    };
    Fate fate = Fate::None;
    QString keptAs;                ///< the name of the copy
    std::optional<FileState> file; ///< the model's file, with the checksum of the copied bytes
};

/// Call before overwriting a file, with its state when it was last read or written. If it has other
/// contents now, or `known` is nullopt, another program has saved them: they are copied beside it,
/// to its name with "~", or "~2" and so on if that is taken.
OtherSave keepOtherSave(const QString& fileName, const std::optional<FileState>& known);

} // namespace korvane
