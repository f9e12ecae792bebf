#pragma once

#include "platform/image/Frame.h"
#include "platform/media/MediaFile.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>

namespace murbo {

/// Pictures out of one file, each the exact one at a time. Time comes from packet timestamps on a clock that
/// starts at the file's zero; rotation, pixel aspect, interlacing, start offsets and edit lists are settled
/// here, so that a frame is upright and at its true time whatever wrote the file.
///
/// For sampling, `next` reads a file from end to end at a fraction of the work. Pictures that no other needs
/// are left out, and where all of them stand alone, some; large ones come without the smoothing of their
/// blocks' edges, interlaced ones with both fields woven. Their times are true; how close they stand
/// depends on how the file was made.
///
/// One thread at a time may use a reader.
class FrameReader {
public:
    enum class Purpose {
        stills,  ///< single pictures anywhere: quick after a seek
        playing, ///< a run of pictures forward: quick from one to the next
        sampling ///< to measure, not to look at: see above
    };

    struct TimedFrame {
        double time = 0; ///< seconds at which the picture comes on
        double from = 0; ///< from when it counts as on: a little earlier where `time` is not exact
        Frame frame;
    };

    /// Opens the first picture track. Throws Problem where there is none or the file can't be read.
    static FrameReader open(const std::filesystem::path& path, Purpose purpose = Purpose::playing);

    FrameReader(FrameReader&&) noexcept;
    FrameReader& operator=(FrameReader&&) noexcept;
    ~FrameReader();

    const MediaFacts& facts() const;

    /// A 600th of a second: a picture that has no place on its track's grid counts as on from this long
    /// before its own time. Half of it allows for the rounding of that time, half for that of the time asked
    /// for. Where the file's clock is coarse, its rounding comes on top.
    static constexpr double tolerance = 1.0 / 600;

    /// The picture that is on at `time`: the last that came on at or before it. One on the track's grid comes
    /// on exactly then, whatever the file rounded, others within `tolerance`. The first one where `time` is
    /// before it, after the end the last one. A time a little after the last one asked for is reached by
    /// decoding on, any other by a seek. Nothing where not one picture can be decoded there, and where `stop`
    /// came before it was reached.
    std::optional<TimedFrame> at(double time, const std::stop_token& stop = {});

    /// The last picture at or before `time` from which decoding can begin: quick to get. `next` goes on from
    /// there.
    std::optional<TimedFrame> keyframe(double time);

    /// Whether `at` would come to a time by decoding on, and need no seek.
    bool reaches(double time) const;

    /// The picture after the one last given; nothing at the end.
    std::optional<TimedFrame> next();

private:
    struct PictureSearch;
    explicit FrameReader(std::unique_ptr<PictureSearch> given);
    std::unique_ptr<PictureSearch> search;
};

}
