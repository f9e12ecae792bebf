#include "core/render/export/DrawnFrames.h"

#include "core/render/Renderer.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace murbo {
namespace {

constexpr std::int64_t captionsKept = 10; // seconds

int workersFor(int asked) {
    const int processors = static_cast<int>(std::thread::hardware_concurrency());
    return std::clamp(asked > 0 ? asked : processors, 1, 16);
}

}

Planes PlanesPool::take() {
    const std::lock_guard hold(lock);
    for (const auto& planes : all) {
        // Two holders: the pool, and the one just asked for.
        if (planes.keeper().use_count() > 2) continue;
        // What the last reader read, it read before it let go.
        std::atomic_thread_fence(std::memory_order_acquire);
        return planes;
    }
    return all.emplace_back(wide, high);
}

DrawnFrames::DrawnFrames(const VideoComposition& given, int workers)
    : composition(given),
      plan(given.box->plan()),
      pool(static_cast<int>(plan->frame.width), static_cast<int>(plan->frame.height)),
      work(1),
      results(static_cast<std::size_t>(workersFor(workers)) + 2) {
    try {
        threads.emplace_back([this] { decode(); });
        for (int index = 0; index < workersFor(workers); ++index) threads.emplace_back([this] { draw(); });
    } catch (...) {
        stop(); // those that did start would wait for the others for ever
        throw;
    }
}

DrawnFrames::~DrawnFrames() {
    stop();
}

std::optional<Planes> DrawnFrames::next() {
    auto result = results.pop();
    if (!result) return std::nullopt;
    try {
        return result->get();
    } catch (const std::future_error&) {
        return std::nullopt; // stopped while it waited to be drawn
    }
}

void DrawnFrames::stop() {
    work.abandon();
    results.abandon();
}

void DrawnFrames::decode() {
    try {
        layOut();
    } catch (...) {
        std::promise<Planes> failed;
        failed.set_exception(std::current_exception());
        results.push(failed.get_future());
    }
    results.finish();
    work.finish();
}

/// Reads the footage forward and puts out what there is to draw, frame by frame. Laying a frame out stays on
/// this one thread: two that meet the same new caption would both draw it, and the videos in playbooks are
/// read forward like the footage.
void DrawnFrames::layOut() {
    PictureFeed feed(composition);
    std::optional<CaptionCache> captions;
    for (std::int64_t frame = 0; frame < composition.frameCount(); ++frame) {
        // Captions that have passed don't come back: keeping them would only fill memory.
        if (frame % (captionsKept * composition.rate) == 0) captions.emplace();
        const auto [picture, source] = feed.frame(frame);
        auto image =
            Renderer::render(picture, source, *plan, composition.moment(frame).time, *captions, media);
        // The image is let go as soon as it is drawn: it holds frames of the decoders.
        std::packaged_task<Planes()> task(
            [this, image = std::move(image)]() mutable { return drawn(std::exchange(image, {})); });
        if (!results.push(task.get_future()) || !work.push(std::move(task))) return;
    }
}

void DrawnFrames::draw() {
    while (auto task = work.pop()) (*task)();
}

Planes DrawnFrames::drawn(const Image& image) {
    auto planes = pool.take();
    Canvas::draw(image, planes);
    return planes;
}

}
