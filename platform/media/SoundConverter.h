#pragma once

#include "platform/media/FFmpeg.h"

#include <deque>
#include <span>
#include <vector>

struct SwrContext;

namespace murbo {

/// Decoded sound of any rate and number of channels, laid on one line of stereo frames at 48 kHz. What is put
/// in at a place always gives the same frames there, wherever the reading began.
class SoundConverter {
public:
    SoundConverter() = default;

    /// Forgets all that was put in.
    void restart();
    /// Sound that begins at `at`, counted in its own samples from the line's zero. Small disagreements with
    /// where the sound before it ended are laid to the clock that wrote the times; larger ones are gaps or
    /// overlaps.
    void put(const AVFrame& sound, std::int64_t at);
    /// No more will come: the last frames become available.
    void finish();

    /// Where the sound put in last ends, in its own samples.
    std::int64_t expected() const { return next; }
    /// The place after the last frame that is available; INT64_MIN where there is none.
    std::int64_t end() const;
    /// Copies the frames from `from` on over `into`; those that were never put in are left alone. Answers how
    /// many of `into` lie before the end of the last one copied.
    std::int64_t copy(std::int64_t from, std::span<float> into) const;
    /// Forgets frames before `until`.
    void forget(std::int64_t until);

private:
    struct FrameRun {
        std::int64_t start = 0;
        std::vector<float> samples;
        std::int64_t end() const { return start + static_cast<std::int64_t>(samples.size() / 2); }
    };
    struct FreeResampler {
        void operator()(SwrContext* held) const;
    };

    bool hasShapeOf(const AVFrame& sound) const;
    void catchUp(double seconds);
    void begin(const AVFrame& sound, std::int64_t at);
    void convert(const std::uint8_t** planes, int samples);
    void append(const float* frames, std::int64_t count);

    std::unique_ptr<SwrContext, FreeResampler> resampler;
    int rate = 0;
    int channels = 0;
    int format = -1;
    std::int64_t next = 0;
    double lastOff = 0;        ///< seconds by which the last stretch's time was later than expected
    std::int64_t position = 0; ///< of the next frame that comes out of the resampler
    std::deque<FrameRun> runs;
    std::vector<float> scratch;
};

}
