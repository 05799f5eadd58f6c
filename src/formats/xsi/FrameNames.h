#pragma once

#include "model/records/FrameRecord.h"

#include <QString>

#include <string>
#include <string_view>
#include <unordered_set>

namespace korvane {

/// Facts about a frame that affect how its name is read from a file.
struct NameUse {
    bool root = false;     ///< it is the outermost frame
    bool mesh = false;     ///< the name is also written at a mesh
    bool flags = false;    ///< flag letters follow the name
    bool animated = false; ///< an animation refers to it
    bool taken = false;    ///< an earlier frame has the same name
};

[[nodiscard]] NameUse nameUse(const FrameRecord& frame, bool root);

/// The same for all frames of a model, called for one after the other in pre-order: knows the names
/// of the earlier ones. The frames must stay.
class NameUses {
  public:
    [[nodiscard]] NameUse next(const FrameRecord& frame, bool root);

  private:
    std::unordered_set<std::string_view> earlier_;
};

/// Returns what saving writes after a frame's name: "__" and the letters of its flags, or nothing.
/// Only frames with a mesh have it.
[[nodiscard]] std::string flagSuffix(const FrameRecord& frame);

/// Returns why reading a saved frame would not restore its name, mesh and animation: the end of a
/// sentence that begins with the name ("contains a line break"). Empty if it would.
[[nodiscard]] QString lostNameReason(std::string_view name, const NameUse& use);

} // namespace korvane
