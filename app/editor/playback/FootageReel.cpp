#include "app/editor/playback/FootageReel.h"

#include "platform/base/Problem.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr double keptBytes = 64e6; // twenty pictures of 1920x1080
constexpr std::size_t maxKept = 32;
constexpr std::size_t minKept = 3;     // the one that is on and its neighbours
constexpr std::size_t fewBefore = 6;   // pictures before a place that call for more
constexpr double worthReadingOn = 0.5; // seconds; beyond, a jump may land nearer
constexpr double usualRate = 30;

double bytesOf(const Frame& frame) {
    const double samples = frame.layout == Frame::Layout::bgra        ? 4
                           : frame.layout == Frame::Layout::chroma444 ? 3
                           : frame.layout == Frame::Layout::chroma422 ? 2
                                                                      : 1.5;
    return samples * frame.width * frame.height * (frame.depth > 8 ? 2 : 1);
}

}

FootageReel::FootageReel(fs::path file) : path(std::move(file)) {}

FootageReel::~FootageReel() {
    stopBefore.request_stop();
}

bool FootageReel::isCurrent() const {
    std::error_code error;
    return reader && fs::last_write_time(path, error) == changed && fs::file_size(path, error) == size;
}

bool FootageReel::open() {
    if (reader || broken) return !broken;
    try {
        std::error_code error;
        changed = fs::last_write_time(path, error);
        size = fs::file_size(path, error);
        reader = FrameReader::open(path);
    } catch (const Problem&) {
        broken = true;
    }
    return !broken;
}

std::optional<Frame> FootageReel::at(double time, const std::stop_token& stop) {
    if (!open()) return std::nullopt;
    asked = time;
    awaitBefore(time, stop);
    try {
        if (!holds(time)) {
            if (isNear(time))
                readOn(time, stop);
            else
                jump(time, stop);
        }
    } catch (const Problem&) {
        readerIsThere = false; // a broken stretch: the picture before it stays
    }
    if (stop.stop_requested() && !holds(time)) return std::nullopt;
    return lastBefore(time);
}

std::optional<Frame> FootageReel::atHand(double time) const {
    return holds(time) ? lastBefore(time) : std::nullopt;
}

std::optional<Frame> FootageReel::lastBefore(double time) const {
    if (kept.empty()) return std::nullopt;
    const auto after =
        std::ranges::partition_point(kept, [&](const auto& each) { return each.from <= time; });
    if (after != kept.begin()) return std::prev(after)->frame;
    return startsFile ? std::optional(kept.front().frame) : std::nullopt;
}

std::optional<FrameReader::TimedFrame> FootageReel::nearest(double time, double tolerance) {
    if (!open()) return std::nullopt;
    const auto apart = [time](const auto& each) { return std::abs(each.time - time); };
    const auto best = std::ranges::min_element(kept, {}, apart);
    if (best != kept.end() && apart(*best) <= tolerance) return *best;
    try {
        auto key = reader->keyframe(time);
        forget();
        if (!key) return std::nullopt;
        keep(*key);
        startsFile = key->from > time;
        return key;
    } catch (const Problem&) {
        forget();
        return std::nullopt;
    }
}

bool FootageReel::holds(double time) const {
    if (kept.empty()) return false;
    return (startsFile || kept.front().from <= time) && (endsFile || kept.back().from > time);
}

bool FootageReel::isNear(double time) const {
    if (kept.empty()) return false;
    const double first = startsFile ? -1e12 : kept.front().from;
    return time >= first && (endsFile || time <= kept.back().time + worthReadingOn);
}

void FootageReel::readOn(double time, const std::stop_token& stop) {
    if (!readerIsThere && !reader->at(kept.back().time, stop)) return;
    readerIsThere = true;
    while (!endsFile && kept.back().from <= time && !stop.stop_requested()) {
        if (auto next = reader->next())
            keep(std::move(*next));
        else
            endsFile = true;
    }
}

/// Goes elsewhere, and reads a few pictures before the time asked for, which come by on the way from the
/// keyframe.
void FootageReel::jump(double time, const std::stop_token& stop) {
    forget();
    auto first = reader->keyframe(time);
    if (!first) return;
    const double length = reader->facts().length;
    const double from = (length > 0 ? std::min(time, length) : time) - reach(capacity() / 2);
    if (from > first->time) first = reader->at(from, stop);
    if (!first || stop.stop_requested()) return;
    startsFile = first->from > time;
    keep(std::move(*first));
    readOn(time, stop);
}

void FootageReel::readBefore(double time) {
    takeBefore();
    const auto few = std::min(fewBefore, capacity() / 2);
    if (before.valid() || kept.empty() || startsFile || kept.front().time < time - reach(few)) return;
    const double edge = kept.front().time;
    beforeFrom = edge - reach(capacity() * 2 / 3);
    stopBefore = {};
    before =
        std::async(std::launch::async, [reader = std::exchange(behind, std::nullopt), file = path,
                                        from = beforeFrom, edge, stop = stopBefore.get_token()]() mutable {
            return readUpTo(std::move(reader), file, from, edge, stop);
        });
}

FootageReel::Before FootageReel::readUpTo(std::optional<FrameReader> reader, const fs::path& path,
                                          double from, double edge, const std::stop_token& stop) {
    Before read;
    read.edge = edge;
    try {
        read.reader = reader ? std::move(reader) : FrameReader::open(path);
        auto frame = read.reader->at(from, stop);
        while (frame && frame->time < edge && !stop.stop_requested()) {
            read.frames.push_back(std::move(*frame));
            frame = read.reader->next();
        }
        read.whole = frame && frame->time == edge;
    } catch (const Problem&) {
        read.whole = false;
    }
    return read;
}

/// Takes what was read, and waits for it where it will hold the time.
void FootageReel::awaitBefore(double time, const std::stop_token& stop) {
    if (!before.valid()) return;
    const bool comes = !kept.empty() && time < kept.front().time && time >= beforeFrom;
    while (comes && !stop.stop_requested() &&
           before.wait_for(std::chrono::milliseconds(2)) != std::future_status::ready) {
    }
    takeBefore();
}

void FootageReel::takeBefore() {
    if (!before.valid() || before.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
    auto read = before.get();
    behind = std::move(read.reader);
    if (!read.whole || kept.empty() || kept.front().time != read.edge) return; // the place is another by now
    kept.insert(kept.begin(), read.frames.begin(), read.frames.end());
    while (kept.size() > capacity() && kept[kept.size() - 2].from > asked) {
        kept.pop_back();
        endsFile = readerIsThere = false;
    }
    while (kept.size() > capacity()) kept.pop_front();
}

void FootageReel::thin() {
    while (kept.size() > 1) {
        kept.pop_front();
        startsFile = false;
    }
}

void FootageReel::keep(FrameReader::TimedFrame frame) {
    kept.push_back(std::move(frame));
    readerIsThere = true;
    while (kept.size() > capacity()) {
        kept.pop_front();
        startsFile = false;
    }
}

void FootageReel::forget() {
    stopBefore.request_stop();
    kept.clear();
    startsFile = endsFile = readerIsThere = false;
}

std::size_t FootageReel::capacity() const {
    if (kept.empty()) return maxKept / 2;
    const auto fit = static_cast<std::size_t>(keptBytes / std::max(bytesOf(kept.front().frame), 1.0));
    return std::clamp(fit, minKept, maxKept);
}

/// How long that number of pictures is on, in seconds.
double FootageReel::reach(std::size_t pictures) const {
    const auto& facts = reader->facts().picture;
    const double rate = facts && facts->meanRate > 1 ? facts->meanRate : usualRate;
    return std::min(static_cast<double>(pictures) / rate, 1.0);
}

}
