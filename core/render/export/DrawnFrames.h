#pragma once

#include "core/render/VideoComposition.h"
#include "core/render/export/PictureFeed.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/base/Channel.h"
#include "platform/image/Bitmap.h"
#include "platform/image/Planes.h"

#include <cstdint>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace murbo {

/// Planes to draw into, used again when nobody holds their samples any more: fresh memory for each frame
/// would have to be cleared by the system, page for page. Any thread may use it.
class PlanesPool {
public:
    PlanesPool(int width, int height) : wide(width), high(height) {}
    Planes take();

private:
    const int wide;
    const int high;
    std::mutex lock;
    std::vector<Planes> all;
};

/// All frames of a composition, finished for the encoder, in their order. They are drawn ahead, each whole by
/// one of several threads; how far ahead is bounded, so memory does not grow with the video.
///
/// One thread at a time may take frames, and the composition must outlive this.
class DrawnFrames {
public:
    /// `workers` threads draw; 0 takes as many as the machine has processors.
    explicit DrawnFrames(const VideoComposition& composition, int workers = 0);
    ~DrawnFrames();

    /// The next frame, waiting for it; nothing after the last one or once stopped. Throws what drawing threw.
    std::optional<Planes> next();

    /// Ends the work early. Safe from any thread.
    void stop();

private:
    void decode();
    void layOut();
    void draw();
    Planes drawn(const Image& image);

    const VideoComposition& composition;
    std::shared_ptr<const Plan> plan;
    PlaybookMedia media;
    PlanesPool pool;
    Channel<std::packaged_task<Planes()>> work;
    Channel<std::future<Planes>> results;
    std::vector<std::jthread> threads;
};

}
