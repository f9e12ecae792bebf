#pragma once

#include "platform/image/Image.h"
#include "platform/media/FrameReader.h"

#include <filesystem>
#include <functional>
#include <future>
#include <optional>
#include <stop_token>
#include <vector>

namespace murbo {

/// Pictures of one file for playing backward. A stretch from a keyframe on is decoded once and kept small,
/// and while it is shown the stretch before it is made ready on a thread of its own: a picture a step back
/// costs no more than a look, however far apart the keyframes lie.
///
/// One thread at a time may use a reel.
class ReverseReel {
public:
    /// Begins to make the pictures ready that lie before `end`, down to `start`, `step` apart; seconds in the
    /// file.
    ReverseReel(std::filesystem::path file, double start, double end, double step);
    ~ReverseReel();

    /// The picture that is on at a time, where it is ready, within the step: as large as the file's own, but
    /// softer. Times are asked for in falling order.
    std::optional<Image> at(double time);
    /// Waits until there is a picture for a time, or none to be had, or `enough` says so.
    void wait(double time, const std::function<bool()>& enough);

private:
    struct Small {
        double time = 0;
        Image picture;
    };
    struct ReversedRun {
        std::optional<FrameReader> reader; ///< handed on to who reads the next
        std::vector<Small> pictures;       ///< in rising order of time
        double from = 0;                   ///< all that comes on from here on
    };

    static ReversedRun read(std::optional<FrameReader> reader, const std::filesystem::path& file,
                            double start, double end, double step, const std::stop_token& stop);
    void begin(std::optional<FrameReader> reader, double end);
    void take();
    void beginAnew(double end);

    const std::filesystem::path path;
    const double first;
    const double apart;
    std::stop_source stopping;
    std::future<ReversedRun> coming;
    double comingEnd = 0; ///< where the stretch that is coming ends
    ReversedRun current;
    bool done = false; ///< nothing before the current stretch
};

}
