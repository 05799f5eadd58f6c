#include "edit/session/HeapMemory.h"

#include <cstdlib> // defines __GLIBC__ with that library

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
