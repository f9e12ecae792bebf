#include "bench/job/SharedFrames.h"

#include <cstring>
#include <new>

#include <sys/mman.h>

namespace murbo::job {
namespace {

/// Calls `each` with every row of the planes and its place in a frame without gaps.
template <class Each>
void forRows(int width, int height, const Each& each) {
    std::size_t offset = 0;
    for (int plane = 0; plane < 3; ++plane) {
        const int wide = plane == 0 ? width : width / 2;
        const int high = plane == 0 ? height : height / 2;
        for (int y = 0; y < high; ++y, offset += wide) each(plane, y, wide, offset);
    }
}

}

SharedFrames::SharedFrames(int width, int height)
    : frameBytes(static_cast<std::size_t>(width) * height * 3 / 2), totalBytes(4096 + slots * frameBytes) {
    void* memory = mmap(nullptr, totalBytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    control = new (memory) Control;
    samples = static_cast<std::uint8_t*>(memory) + 4096;
    sem_init(&control->free, 1, slots);
    sem_init(&control->full, 1, 0);
}

SharedFrames::~SharedFrames() {
    munmap(control, totalBytes);
}

void SharedFrames::put(const Planes& planes) {
    sem_wait(&control->free);
    forRows(planes.width(), planes.height(), [&](int plane, int y, int wide, std::size_t offset) {
        std::memcpy(slot(control->put) + offset, planes.plane(plane) + y * planes.stride(plane), wide);
    });
    ++control->put;
    sem_post(&control->full);
}

void SharedFrames::end() {
    control->last = control->put;
    sem_post(&control->full);
}

bool SharedFrames::take(Planes& into) {
    sem_wait(&control->full);
    if (control->taken == control->last) return false;
    forRows(into.width(), into.height(), [&](int plane, int y, int wide, std::size_t offset) {
        std::memcpy(into.plane(plane) + y * into.stride(plane), slot(control->taken) + offset, wide);
    });
    ++control->taken;
    sem_post(&control->free);
    return true;
}

}
