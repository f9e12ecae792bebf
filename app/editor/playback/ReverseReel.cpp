#include "app/editor/playback/ReverseReel.h"

#include "platform/base/Problem.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace murbo {
namespace {

constexpr double smallPixels = 640 * 360; // enough while it runs; the picture that it stops on is whole
constexpr std::size_t maxPictures = 160;  // 55 MB
constexpr double nearly = 1e-3;           // seconds by which pictures may be nearer than the step
constexpr auto look = std::chrono::milliseconds(5);

int even(double size) {
    return std::max(2, 2 * static_cast<int>(std::lround(size / 2)));
}

/// The samples of planes as a decoded picture.
Frame frameOf(const Planes& planes) {
    Frame frame;
    frame.width = planes.width();
    frame.height = planes.height();
    for (std::size_t index = 0; index < 3; ++index) {
        frame.planes[index] = planes.plane(static_cast<int>(index));
        frame.strides[index] = planes.stride(static_cast<int>(index));
    }
    frame.keeper = planes.keeper();
    return frame;
}

/// The same picture in fewer pixels, as large to look at.
Image reduced(const Frame& frame) {
    const auto whole = Image::frame(frame);
    const auto extent = whole.extent();
    const double scale = std::min(1.0, std::sqrt(smallPixels / std::max(extent.width * extent.height, 1.0)));
    Planes planes(even(extent.width * scale), even(extent.height * scale));
    const double x = planes.width() / extent.width;
    const double y = planes.height() / extent.height;
    Canvas::draw(whole.transformed(Transform().scaled(x, y)), planes);
    return Image::frame(frameOf(planes)).transformed(Transform().scaled(1 / x, 1 / y));
}

}

ReverseReel::ReverseReel(std::filesystem::path file, double start, double end, double step)
    : path(std::move(file)), first(start), apart(step) {
    begin(std::nullopt, end);
}

ReverseReel::~ReverseReel() {
    stopping.request_stop();
}

void ReverseReel::begin(std::optional<FrameReader> reader, double end) {
    comingEnd = end;
    coming = std::async(std::launch::async, [reader = std::move(reader), file = path, start = first, end,
                                             step = apart, stop = stopping.get_token()]() mutable {
        return read(std::move(reader), file, start, end, step, stop);
    });
}

ReverseReel::ReversedRun ReverseReel::read(std::optional<FrameReader> reader,
                                           const std::filesystem::path& file, double start, double end,
                                           double step, const std::stop_token& stop) {
    ReversedRun stretch;
    stretch.from = start;
    try {
        if (!reader) reader = FrameReader::open(file);
        stretch.reader = std::move(reader);
        auto frame = stretch.reader->keyframe(end);
        if (!frame) return stretch;
        const double fits = end - static_cast<double>(maxPictures) * step;
        stretch.from = std::max({frame->time, start, fits});
        if (stretch.from > frame->time) frame = stretch.reader->at(stretch.from, stop);
        for (; frame && frame->from <= end && !stop.stop_requested(); frame = stretch.reader->next()) {
            const bool tooNear =
                !stretch.pictures.empty() && frame->time < stretch.pictures.back().time + step - nearly;
            if (!tooNear) stretch.pictures.push_back({frame->time, reduced(frame->frame)});
        }
    } catch (const Problem&) {
        // A broken stretch: what came before it is shown for longer.
    }
    return stretch;
}

/// Turns to the stretch that has come, and begins the one before it.
void ReverseReel::take() {
    auto next = coming.get();
    auto reader = std::move(next.reader);
    const bool sameAgain = next.pictures.empty();
    current = std::move(next);
    current.reader.reset();
    done = sameAgain || current.from <= first;
    if (!done) begin(std::move(reader), current.from - apart / 2);
}

/// Leaves what is coming, which would come too late, for what lies before a time.
void ReverseReel::beginAnew(double end) {
    stopping.request_stop();
    auto reader = coming.get().reader;
    stopping = {};
    current = {};
    begin(std::move(reader), end);
}

std::optional<Image> ReverseReel::at(double time) {
    if (coming.valid() && (current.pictures.empty() || time < current.from - apart / 2) &&
        coming.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        take();
    const double covered = comingEnd - static_cast<double>(maxPictures) * apart;
    if (coming.valid() && time >= first && time < covered) beginAnew(time);
    auto& pictures = current.pictures;
    // Those that have been shown make room.
    while (pictures.size() > 1 && pictures.back().time > time + apart / 2) pictures.pop_back();
    if (pictures.empty() || (time < current.from - apart / 2 && !done)) return std::nullopt;
    return pictures.back().picture;
}

void ReverseReel::wait(double time, const std::function<bool()>& enough) {
    const bool ready = !current.pictures.empty() && (done || time >= current.from - apart / 2);
    while (!ready && coming.valid() && !enough() && coming.wait_for(look) != std::future_status::ready) {
    }
}

}
