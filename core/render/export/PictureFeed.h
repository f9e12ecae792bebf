#pragma once

#include "core/render/VideoComposition.h"
#include "platform/image/Image.h"
#include "platform/media/FrameReader.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <future>
#include <optional>
#include <vector>

namespace murbo {

/// The footage of a composition's frames, decoded forward from frame to frame. While one cut plays, the file
/// of the next is opened and wound forward on a thread of its own. At most two files are open at a time.
///
/// One thread at a time may use a feed, and the composition must outlive it.
class PictureFeed {
public:
    struct FedPicture {
        std::optional<Image> image; ///< none: black
        std::optional<UUID> source; ///< whose it is; none where the file has no readable picture
    };

    explicit PictureFeed(const VideoComposition& composition);

    /// What the footage shows at a frame. Frames are asked for in rising order. Where a file ends early or
    /// breaks off, its last picture stays.
    FedPicture frame(std::int64_t number);

private:
    /// Segments of one file that follow so closely that one reader plays them without a seek.
    struct Run {
        std::size_t firstSegment = 0;
        std::size_t lastSegment = 0;
    };

    /// A file at work.
    struct FootageRun {
        std::filesystem::path file;
        std::optional<FrameReader> reader;
        std::optional<FrameReader::TimedFrame> shown;

        void show(double time);
    };

    static std::vector<Run> runs(const VideoComposition& composition);
    static FootageRun opened(FootageRun passed, const VideoComposition::Segment& segment, double at);
    void startNext(FootageRun passed);
    void turnTo(std::size_t segment);

    const VideoComposition& composition;
    const std::vector<Run> strands;
    std::size_t started = 0;      ///< how many runs have been opened or are being opened
    std::future<FootageRun> next; ///< the run that comes after the current one
    FootageRun current;
};

}
