#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/TextLines.h"

#include <string_view>

namespace korvane {

/// Reports numbers and materials of a list that the reader does not reach. Each check returns true
/// if it reported something.
class ListCheck {
  public:
    ListCheck(std::string_view bytes, FindingList& findings) : bytes_(bytes), findings_(findings) {}

    /// The line opens a block. Its numbers are read from the next line on.
    bool takeOpening(const TextLine& line);
    /// Checks after `end`, where the reader stopped taking numbers of the last opened block.
    bool takeEnd(TextPlace end);
    /// Checks after `behind`, where the reader stopped taking materials of the list at `opening`.
    bool takeMaterialsEnd(TextPlace behind, TextPlace opening);

  private:
    std::string_view bytes_;
    FindingList& findings_;
    TextLine opening_;
    bool reported_ = false; ///< numbers in the opening line were reported
};

} // namespace korvane
