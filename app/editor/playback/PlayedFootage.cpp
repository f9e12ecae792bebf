#include "app/editor/playback/PlayedFootage.h"

#include "core/model/Times.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace murbo {
namespace {

constexpr double tolerance = 0.1;    // seconds by which a skim's first picture may miss its place
constexpr double aheadBackward = 3;  // seconds of play backward at which the cut before is made ready
constexpr std::int64_t nearEdge = 6; // frames from a cut's start at which a step back is likelier than play

}

PlayedFootage::~PlayedFootage() {
    preparing.request_stop();
}

void PlayedFootage::turnTo(std::shared_ptr<const VideoComposition> given) {
    preparing.request_stop();
    finishPreparing();
    reversed.clear();
    composition = std::move(given);
    for (auto* reel : {&current, &other})
        if (*reel && !(*reel)->isCurrent()) reel->reset();
}

PlayedFootage::PlayedPicture PlayedFootage::at(const VideoComposition::Moment& moment, double rate,
                                               const std::stop_token& stop) {
    const auto& segment = composition->segments[moment.segment];
    reversed.clear();
    if (!segment.file.empty()) reelFor(moment.segment, moment.at);
    const auto next = rate > 0 ? neighbour(moment.segment, 1) : std::nullopt;
    if (next) prepare(*next, composition->segments[*next].from);
    if (segment.file.empty() || !current->open()) return {};
    const auto frame = current->at(moment.at, stop);
    if (!frame) return {{}, segment.source};
    return {Image::frame(*frame), segment.source};
}

PlayedFootage::PlayedPicture PlayedFootage::backward(const VideoComposition::Moment& moment, double rate,
                                                     const std::stop_token& stop,
                                                     const std::function<bool()>& late) {
    const auto& segment = composition->segments[moment.segment];
    const double step = std::max(std::abs(rate), 1.0) / composition->rate;
    const auto before = neighbour(moment.segment, -1);
    if (before && moment.at - segment.from < aheadBackward * std::abs(rate)) {
        const auto& earlier = composition->segments[*before];
        reverseReel(*before, earlier.from + earlier.length, step);
    }
    std::erase_if(reversed, [&](const auto& each) { return each.first > moment.segment; });
    if (segment.file.empty()) return {};
    auto& reel = reverseReel(moment.segment, moment.at, step);
    auto picture = reel.at(moment.at);
    if (!picture && current && current->file() == segment.file)
        if (const auto frame = current->atHand(moment.at)) return {Image::frame(*frame), segment.source};
    if (!picture) {
        reel.wait(moment.at, [&] { return stop.stop_requested() || late(); });
        picture = reel.at(moment.at);
    }
    if (!picture && !stop.stop_requested()) return nearest(moment, segment);
    if (current) current->thin();
    return {picture, segment.source, false};
}

PlayedFootage::PlayedPicture PlayedFootage::nearest(const VideoComposition::Moment& moment) {
    const auto& segment = composition->segments[moment.segment];
    reversed.clear();
    return segment.file.empty() ? PlayedPicture{} : nearest(moment, segment);
}

PlayedFootage::PlayedPicture PlayedFootage::nearest(const VideoComposition::Moment& moment,
                                                    const Segment& segment) {
    auto& reel = reelFor(moment.segment, moment.at);
    if (!reel.open()) return {};
    if (const auto frame = reel.atHand(moment.at)) return {Image::frame(*frame), segment.source, false};
    const auto near = reel.nearest(moment.at, tolerance);
    if (!near) return {{}, segment.source, false};
    return {Image::frame(near->frame), segment.source, false};
}

void PlayedFootage::readAround(const VideoComposition::Moment& moment) {
    const auto& segment = composition->segments[moment.segment];
    const auto passed = std::llround((moment.time - segment.start) * composition->rate);
    const auto next = neighbour(moment.segment, passed < nearEdge ? -1 : 1);
    if (next) {
        const auto& there = composition->segments[*next];
        const double last = there.from + there.length - 1.0 / composition->rate;
        prepare(*next, *next < moment.segment ? std::max(last, there.from) : there.from);
    }
    if (!segment.file.empty() && current && current->file() == segment.file) current->readBefore(moment.at);
}

/// Whether one reel plays both without a jump.
bool PlayedFootage::goesOn(const Segment& earlier, const Segment& later) const {
    const double gap = later.from - (earlier.from + earlier.length);
    return earlier.file == later.file && std::abs(gap) <= Times::shortestCut;
}

/// The next segment, in either direction, that wants a reel of its own.
std::optional<std::size_t> PlayedFootage::neighbour(std::size_t segment, int way) const {
    const auto& segments = composition->segments;
    for (std::size_t index = segment + way; index < segments.size(); index += way) {
        if (segments[index].file.empty() || !segments[index].hasFrames()) continue;
        if (way < 0) return index;
        if (!goesOn(segments[index - 1], segments[index])) return index;
    }
    return std::nullopt;
}

/// The reel that serves a segment: the one that is there, the one made ready, or one sent there.
FootageReel& PlayedFootage::reelFor(std::size_t segment, double at) {
    const auto& file = composition->segments[segment].file;
    const auto serves = [&](const std::optional<FootageReel>& reel) {
        return reel && reel->file() == file && reel->isNear(at);
    };
    if (serves(current)) return *current;
    if (prepared != segment) preparing.request_stop();
    finishPreparing();
    if (serves(other) || !current || current->file() != file) std::swap(current, other);
    if (other) other->thin();
    if (!current || current->file() != file) openAnew(file);
    return *current;
}

void PlayedFootage::openAnew(const std::filesystem::path& file) {
    current.reset(); // closed before the next is opened
    current.emplace(file);
}

/// Sends the other reel to a segment's place.
void PlayedFootage::prepare(std::size_t segment, double at) {
    if (prepared == segment) return;
    preparing.request_stop();
    finishPreparing();
    prepared = segment;
    preparing = {};
    const auto& file = composition->segments[segment].file;
    if (other && other->file() != file) other.reset();
    if (!other) other.emplace(file);
    pending = std::async(std::launch::async,
                         [reel = std::move(*other), at, stop = preparing.get_token()]() mutable {
                             if (!reel.isNear(at)) reel.at(at, stop);
                             return std::move(reel);
                         });
    other.reset();
}

void PlayedFootage::finishPreparing() {
    prepared.reset();
    if (pending.valid()) other.emplace(pending.get());
}

ReverseReel& PlayedFootage::reverseReel(std::size_t segment, double from, double step) {
    auto& reel = reversed[segment];
    const auto& stretch = composition->segments[segment];
    if (!reel) reel = std::make_unique<ReverseReel>(stretch.file, stretch.from, from, step);
    return *reel;
}

}
