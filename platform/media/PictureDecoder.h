#pragma once

#include "platform/media/Deinterlacer.h"
#include "platform/media/Demuxer.h"
#include "platform/media/Stopped.h"

#include <optional>

namespace murbo {

/// Decoded pictures of one track in the order in which they come on, each whole: those that cannot be
/// decoded rightly after a jump, for want of what lay before it, are left out. For FrameReader.
class PictureDecoder {
public:
    struct Decoded {
        std::int64_t ticks = 0; ///< when it comes on, in the track's own time base
        ffmpeg::Picture picture;
    };

    enum class Threads {
        one,    ///< the shortest delay after a jump
        several ///< the next pictures are decoded while one is looked at
    };

    /// Throws Problem where the track has no working decoder.
    PictureDecoder(Demuxer& input, AVStream* stream, Threads threads);

    /// From here on gives only what can be had with little work: see FrameReader's sampling.
    void onlySample();

    /// Goes to the last place at or before a time from which decoding can begin. False where that failed.
    bool seek(double seconds);
    /// Goes to the very beginning; from there on nothing is left out.
    bool rewind();

    /// From here on, pictures that come on well before this time may be left out where no other needs them:
    /// reaching a place deep between two keyframes then costs little more than half.
    void windTo(std::int64_t ticks) { windEnd = ticks; }
    void stopWinding() { windEnd = INT64_MIN; }
    /// The latest time up to the winding's goal at which a picture may have been left out.
    std::int64_t latestLeftOut() const { return leftOut; }

    /// How far into the track packets have been read.
    std::int64_t readUpTo() const { return farthest; }

    /// The next picture; nothing at the end, and where nothing came of a long stretch. After such a stretch
    /// another call reads on.
    std::optional<Decoded> next();

    /// Why there was no next picture: it is all over, or `next` only gave up for now.
    bool isAtEnd() const { return stopped == Stopped::atEnd; }
    /// Reading failed, and reading on would too; a seek may help.
    bool hasFailed() const { return stopped == Stopped::failed; }

private:
    void restart();
    void feed();
    bool isUsable(const AVPacket& packet);
    bool isBetweenSamples(const AVPacket& packet);
    void chooseSkipping(const AVPacket& packet);
    bool receive();
    std::int64_t timeOf(const AVFrame& picture);
    void measureLateness();
    bool deinterlace();
    std::optional<Decoded> given(std::int64_t ticks);

    Demuxer& input;
    AVStream* stream;
    ffmpeg::CodecContext codec;
    ffmpeg::Packet packet = ffmpeg::makePacket();
    ffmpeg::Picture picture = ffmpeg::makePicture();
    std::optional<Deinterlacer> deinterlacer;

    bool sampling = false;
    std::int64_t sampleStep = 0; ///< ticks; 0 where all packets are read
    std::int64_t lastSampled = INT64_MIN;
    bool mayWind = false;
    std::int64_t windEnd = INT64_MIN;
    std::int64_t windMargin = 0;
    std::int64_t leftOut = INT64_MIN;
    std::int64_t farthest = INT64_MIN;
    std::int64_t lastGiven = INT64_MIN;

    std::int64_t lateness = 0; ///< ticks that the packets' times are later than those of their pictures

    bool fromStart = true;
    bool waitsForKey = false;
    std::int64_t firstKey = INT64_MIN;
    bool neighbourMissing = false;
    Stopped stopped = Stopped::no;
    bool drained = false;
    int packetsInVain = 0;
};

}
