#include "core/render/export/PictureFeed.h"

#include "core/model/Run.h"
#include "core/model/Times.h"
#include "platform/base/Problem.h"

#include <utility>

namespace murbo {
namespace {

/// Over a gap like that, which taking out a pause leaves, one reader goes on: it decodes through where that
/// costs less than beginning anew at a keyframe.
constexpr double shortGap = 5; // seconds

bool goesOn(const VideoComposition::Segment& earlier, const VideoComposition::Segment& later) {
    const double gap = later.from - (earlier.from + earlier.length);
    return earlier.file == later.file && gap >= -Times::samePlace && gap <= shortGap;
}

}

PictureFeed::PictureFeed(const VideoComposition& given) : composition(given), strands(runs(given)) {
    startNext({});
}

PictureFeed::FedPicture PictureFeed::frame(std::int64_t number) {
    const auto moment = composition.moment(number);
    const auto& segment = composition.segments[moment.segment];
    if (segment.file.empty()) return {};
    turnTo(moment.segment);
    if (!current.reader) return {};
    current.show(moment.at);
    if (!current.shown) return {{}, segment.source};
    return {Image::frame(current.shown->frame), segment.source};
}

std::vector<PictureFeed::Run> PictureFeed::runs(const VideoComposition& composition) {
    std::vector<Run> found;
    const auto& segments = composition.segments;
    for (std::size_t index = 0; index < segments.size(); ++index) {
        if (segments[index].file.empty() || !segments[index].hasFrames()) continue;
        if (!found.empty() && goesOn(segments[found.back().lastSegment], segments[index])) {
            found.back().lastSegment = index;
        } else {
            found.push_back({index, index});
        }
    }
    return found;
}

/// Makes a reader ready at a moment of the segment's file; the one passed on serves again where it can.
PictureFeed::FootageRun PictureFeed::opened(FootageRun passed, const VideoComposition::Segment& segment,
                                            double at) {
    if (passed.file != segment.file || !passed.reader) {
        passed = {}; // closed before the next is opened
        passed.file = segment.file;
        try {
            passed.reader = FrameReader::open(segment.file);
        } catch (const Problem&) {
            return passed;
        }
    }
    passed.shown.reset();
    passed.show(at);
    return passed;
}

void PictureFeed::startNext(FootageRun passed) {
    if (started == strands.size()) return;
    const auto index = strands[started++].firstSegment;
    const auto& segment = composition.segments[index];
    const double at = composition.moment(segment.firstFrame).at;
    next = std::async(std::launch::async, opened, std::move(passed), segment, at);
}

/// Makes the current reading the one that serves a segment.
void PictureFeed::turnTo(std::size_t segment) {
    while (next.valid() && strands[started - 1].firstSegment <= segment) {
        startNext(std::exchange(current, next.get()));
    }
}

void PictureFeed::FootageRun::show(double time) {
    try {
        if (auto timed = reader->at(time)) shown = std::move(timed);
    } catch (const Problem&) {
        // A broken stretch: the picture before it stays.
    }
}

}
