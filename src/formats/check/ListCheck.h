#pragma once

#include "formats/check/FindingList.h"
#include "formats/check/TextLines.h"

#include <string_view>

namespace korvane {

/// Tells which numbers and materials stand where the reading of a list does not reach them. Each
/// check returns whether it has told something.
class ListCheck {
  public:
    ListCheck(std::string_view bytes, FindingList& findings) : bytes_(bytes), findings_(findings) {}

    /// The line opens a block, whose numbers are read from the lines below.
    bool takeOpening(const TextLine& line);
    /// Nothing behind this place is read of the numbers of the block opened last.
    bool takeEnd(TextPlace end);
    /// Nothing behind this place is read of a list of materials, which the line opens.
    bool takeMaterialsEnd(TextPlace behind, TextPlace opening);

  private:
    std::string_view bytes_;
    FindingList& findings_;
    TextLine opening_;
    bool told_ = false; ///< that numbers stand in its line
};

} // namespace korvane
