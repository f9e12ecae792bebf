#pragma once

// The media libraries' headers, and owners for what they hand out. For the sources of this room alone.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/display.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <memory>
#include <string>

namespace murbo::ffmpeg {

/// Calls a library's own "free", which takes the address of a pointer.
template <auto function>
struct FreeBy {
    template <class T>
    void operator()(T* held) const {
        function(&held);
    }
};

using FormatContext = std::unique_ptr<AVFormatContext, FreeBy<avformat_close_input>>;
using CodecContext = std::unique_ptr<AVCodecContext, FreeBy<avcodec_free_context>>;
using Packet = std::unique_ptr<AVPacket, FreeBy<av_packet_free>>;
using Picture = std::unique_ptr<AVFrame, FreeBy<av_frame_free>>;

/// New and empty; throw std::bad_alloc where there is no memory.
Packet makePacket();
Picture makePicture();

/// The library's words for one of its error numbers.
std::string words(int error);

/// The libraries write to standard error by themselves; they speak only where MURBO_DEBUG is set. Any number
/// of calls, from any thread.
void quiet();

}
