#pragma once

namespace korvane {

/// Gives the system back what the heap keeps of memory that nobody uses: after a large model has
/// gone that may be hundreds of megabytes.
void trimHeap();

} // namespace korvane
