#pragma once

#include "model/records/FrameRecord.h"

#include <QString>

#include <string>
#include <string_view>

namespace korvane {

/// What a file says beside a frame's name, all of which has a part in how the name is read.
struct NameUse {
    bool root = false;     ///< no frame is above it
    bool mesh = false;     ///< the name stands at a mesh as well
    bool flags = false;    ///< letters for flags stand behind it
    bool animated = false; ///< an animation refers to it
};

[[nodiscard]] NameUse nameUse(const FrameRecord& frame, bool root);

/// What is written behind a frame's name: "__" and the letters of its flags, or nothing. Only
/// frames with a mesh have it.
[[nodiscard]] std::string flagSuffix(const FrameRecord& frame);

/// Why a reading would not give a saved frame back under its name, with its mesh and its animation:
/// the end of a sentence that begins with the name ("holds a blank"). Empty if it would.
[[nodiscard]] QString lostNameReason(std::string_view name, const NameUse& use);

} // namespace korvane
