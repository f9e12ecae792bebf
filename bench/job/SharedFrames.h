#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Planes.h"

#include <cstddef>
#include <optional>

#include <semaphore.h>

namespace murbo::job {

/// Frames handed from one process to another through memory that both see, so that one can be measured
/// without what the other costs. Made before the processes part.
class SharedFrames {
public:
    SharedFrames(int width, int height);
    SharedFrames(const SharedFrames&) = delete;
    SharedFrames& operator=(const SharedFrames&) = delete;
    ~SharedFrames();

    void put(const Planes& planes);
    /// Nothing more comes.
    void end();
    /// Copies the next frame; false at the end.
    bool take(Planes& into);

private:
    struct Control {
        sem_t free;
        sem_t full;
        std::size_t put = 0;
        std::size_t taken = 0;
        std::size_t last = SIZE_MAX; ///< the frame that will not come
    };
    static constexpr std::size_t slots = 4;

    std::uint8_t* slot(std::size_t frame) { return samples + frame % slots * frameBytes; }

    std::size_t frameBytes;
    std::size_t totalBytes;
    Control* control;
    std::uint8_t* samples;
};

}
