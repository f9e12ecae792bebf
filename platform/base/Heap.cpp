#include "platform/base/Heap.h"

#include <malloc.h>

namespace murbo {

void Heap::keepSmall() {
#ifdef __GLIBC__
    // Each arena keeps its own free memory, and there would be eight to a core.
    mallopt(M_ARENA_MAX, 2);
    // Left alone it rises to the largest block that was ever freed, and frames are kept from then on.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    mallopt(M_TRIM_THRESHOLD, 16 << 20);
#endif
}

}
