#include "platform/media/FFmpeg.h"

#include <cstdlib>
#include <new>

namespace murbo::ffmpeg {

Packet makePacket() {
    Packet packet(av_packet_alloc());
    if (!packet) throw std::bad_alloc();
    return packet;
}

Picture makePicture() {
    Picture picture(av_frame_alloc());
    if (!picture) throw std::bad_alloc();
    return picture;
}

std::string words(int error) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(error, text.data(), text.size());
    return text.data();
}

void quiet() {
    static const bool done = [] {
        if (!std::getenv("MURBO_DEBUG")) av_log_set_callback([](void*, int, const char*, va_list) {});
        return true;
    }();
    static_cast<void>(done);
}

}
