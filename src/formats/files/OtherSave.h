#pragma once

#include "formats/files/FileState.h"

#include <QString>

#include <optional>

namespace korvane {

/// What became of what another program has saved under a model's name.
struct OtherSave {
    enum class Fate {
        None,    ///< no other program has saved anything there
        Kept,    ///< it stands beside the file
        NotKept, ///< it cannot be kept
    };
    Fate fate = Fate::None;
    QString keptAs;                ///< the file that it is kept in
    std::optional<FileState> file; ///< the model's file, whose bytes are those that were kept
};

/// A file is about to be written over, which was `known` when it was read or written last. Where it
/// is there and holds other bytes now, another program has saved them: they are kept beside it
/// under its name with "~", or "~2" and so on where that is taken.
OtherSave keepOtherSave(const QString& fileName, const std::optional<FileState>& known);

} // namespace korvane
