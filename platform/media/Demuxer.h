#pragma once

#include "platform/media/FFmpeg.h"

#include <chrono>
#include <filesystem>
#include <vector>

namespace murbo {

/// An opened media file: its tracks, its clock, packets out of it. It never waits longer than its deadlines,
/// whatever the file or the disk under it does. For the readers of this room; one thread at a time.
class Demuxer {
public:
    /// Throws Problem where the path is no regular file, or holds nothing that can be read.
    explicit Demuxer(const std::filesystem::path& path);

    const std::filesystem::path& path() const { return place; }
    AVFormatContext* context() const { return format.get(); }

    /// The first picture track that can be decoded and is no attached cover; null where there is none.
    AVStream* picture() const;
    /// The sound tracks that can be decoded, in the file's order.
    std::vector<AVStream*> sounds() const;

    /// Seconds on the file's clock, whose zero is the earliest start of its picture and sound tracks.
    double seconds(std::int64_t ticks, const AVStream* stream) const;
    std::int64_t ticks(double seconds, const AVStream* stream) const;

    /// From now on only this track's packets are read; the others are passed over unread where the format
    /// can do so.
    void readOnly(const AVStream* stream);

    /// The next packet of the chosen track; false at the end, and where nothing more can be read.
    bool read(AVPacket* packet);
    /// Whether the last reading met the end of the file, and did not fail before it.
    bool isAtEnd() const { return lastError == AVERROR_EOF; }
    /// Whether the last reading took too long. Another one at once would as well.
    bool isTooSlow() const { return lastError == AVERROR_EXIT; }

    /// Goes to the last place at or before a time from which the track can be decoded, as far as the format
    /// can say; it may be later or much earlier. False where that failed.
    bool seek(const AVStream* stream, double seconds);
    /// Goes to the very beginning.
    bool rewind();

    /// How long the next calls may take together; starts anew with each call.
    void allow(std::chrono::milliseconds time);

private:
    void settleTrimmed();
    bool beginsWithinGroup(const AVStream* stream) const;
    void settle(AVPacket* packet) const;
    AVStream* guideFor(const AVStream* stream) const;

    std::filesystem::path place;
    std::unique_ptr<std::chrono::steady_clock::time_point> deadline;
    ffmpeg::FormatContext format;
    const AVStream* chosen = nullptr;
    bool atStart = true;
    int lastError = 0;
    double zero = 0;
    int earlyTrack = -1;    ///< whose packets the library gives too early; -1 where none is
    std::int64_t early = 0; ///< ticks of that track
};

}
