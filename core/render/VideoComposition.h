#pragma once

#include "core/render/PlanBox.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// A video as what a player or an exporter runs through: its cuts one after the other, each with the stretch
/// of a file that it shows, and whole numbered frames over them.
///
/// Frame n is the picture at n / rate seconds, by the rule of `FrameTime`. Frames are whole numbers
/// everywhere, so that nothing drifts however long the video is.
struct VideoComposition {
    /// One cut on the video's clock.
    struct Segment {
        double start = 0;           ///< video seconds
        double length = 0;          ///< seconds
        double from = 0;            ///< where it starts in the file, seconds
        double lastMoment = 0;      ///< the last that may be asked of the file, seconds
        std::filesystem::path file; ///< empty where there is no footage: black
        std::optional<UUID> source; ///< whose footage; none where there is no file
        std::int64_t firstFrame = 0;
        std::int64_t endFrame = 0; ///< the frame after its last

        double end() const { return start + length; }
        bool hasFrames() const { return firstFrame < endFrame; }
    };

    /// What a frame shows.
    struct Moment {
        std::size_t segment = 0; ///< index
        double time = 0;         ///< video seconds
        double at = 0;           ///< seconds in the segment's file, to ask its reader for
    };

    std::shared_ptr<PlanBox> box;
    std::vector<Segment> segments;
    int rate = 30; ///< frames a second

    /// Lays a video out. `missing` are sources whose file is gone; their cuts keep their time. `frameRate` is
    /// rounded to whole frames a second; without one it is `sourceRate`. Throws Problem for a rate or a
    /// length that no movie can have.
    static VideoComposition make(const Video& video, const Project& project, const std::set<UUID>& missing,
                                 const std::string& fonts,
                                 const std::optional<std::filesystem::path>& package,
                                 std::optional<double> frameRate);

    /// The frame rate that the footage asks for: the highest nominal rate among its sources, at most 60;
    /// 30 where none says. Reads the files' headers.
    static double sourceRate(const Video& video, const Project& project, const std::set<UUID>& missing);

    /// How many frames the video has; 0 without cuts.
    std::int64_t frameCount() const { return segments.empty() ? 0 : segments.back().endFrame; }

    /// Seconds.
    double length() const { return segments.empty() ? 0 : segments.back().end(); }

    /// What a frame shows; `frame` from 0 to below `frameCount`.
    Moment moment(std::int64_t frame) const;
};

}
