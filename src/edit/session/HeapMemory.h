#pragma once

namespace korvane {

/// Returns unused heap memory to the system: after closing a large model this may be hundreds of
/// megabytes.
void trimHeap();

} // namespace korvane
