#pragma once

#include "formats/check/FindingList.h"

#include <string_view>

namespace korvane {

/// Reports why reading ended at `place`, where it expected a number, or the character `wanted` if
/// that is not 0.
void reportEarlyEnd(std::string_view bytes, TextPlace place, char wanted, FindingList& findings);

} // namespace korvane
