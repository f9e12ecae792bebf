#pragma once

#include "platform/media/FFmpeg.h"
#include "platform/media/UnfinishedFile.h"

namespace murbo {

/// The MPEG-4 file under a MovieWriter: packets in, a whole file in its place at the end. Each call throws
/// Problem where the file can't be written, with the system's reason.
class Muxer {
public:
    explicit Muxer(const std::filesystem::path& path);
    Muxer(const Muxer&) = delete;
    Muxer& operator=(const Muxer&) = delete;
    ~Muxer();

    AVStream* addTrack(const AVCodecContext& codec);
    /// All tracks are there.
    void begin();
    /// Takes the packet over. `timeBase` is that of its times.
    void write(AVPacket& packet, AVRational timeBase, const AVStream* track);
    void finish();

private:
    void check(int error) const;

    UnfinishedFile file;
    AVIOContext* writing = nullptr;
    AVFormatContext* format = nullptr;
    std::int64_t position = 0;
    int failure = 0; ///< errno of the first write that failed
    friend struct MuxerCalls;
};

}
