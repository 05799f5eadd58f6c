#include "edit/session/HeapMemory.h"

#include <cstdlib> // tells which C library it is

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korvane {

void trimHeap() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace korvane
