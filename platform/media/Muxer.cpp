#include "platform/media/Muxer.h"

#include <cerrno>
#include <new>

#include <sys/stat.h>
#include <unistd.h>

namespace murbo {

namespace {

constexpr int bufferSize = 1 << 16;

std::int64_t sizeOf(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 ? status.st_size : -1;
}

// Where a seek leads; the libraries also ask for the size by this road.
std::int64_t sought(int descriptor, std::int64_t position, std::int64_t offset, int whence) {
    if (whence & AVSEEK_SIZE) return sizeOf(descriptor);
    const std::int64_t base = whence == SEEK_CUR ? position : whence == SEEK_END ? sizeOf(descriptor) : 0;
    return base + offset < 0 ? AVERROR(EINVAL) : base + offset;
}

// A second look at the file while it is written, with which the index is brought to its front.
struct ReadBack {
    int descriptor;
    std::int64_t position = 0;
};

int readMore(void* opaque, std::uint8_t* into, int size) {
    auto* reading = static_cast<ReadBack*>(opaque);
    const ssize_t got = pread(reading->descriptor, into, static_cast<std::size_t>(size), reading->position);
    if (got < 0) return AVERROR(errno);
    reading->position += got;
    return got == 0 ? AVERROR_EOF : static_cast<int>(got);
}

std::int64_t seekReading(void* opaque, std::int64_t offset, int whence) {
    auto* reading = static_cast<ReadBack*>(opaque);
    const std::int64_t there = sought(reading->descriptor, reading->position, offset, whence);
    if (!(whence & AVSEEK_SIZE) && there >= 0) reading->position = there;
    return there;
}

AVIOContext* context(int forWriting, void* opaque, int (*read)(void*, std::uint8_t*, int),
                     int (*write)(void*, std::uint8_t*, int),
                     std::int64_t (*seek)(void*, std::int64_t, int)) {
    auto* buffer = static_cast<std::uint8_t*>(av_malloc(bufferSize));
    AVIOContext* made =
        buffer ? avio_alloc_context(buffer, bufferSize, forWriting, opaque, read, write, seek) : nullptr;
    if (!made) av_free(buffer);
    return made;
}

void release(AVIOContext*& context) {
    if (!context) return;
    av_freep(&context->buffer);
    avio_context_free(&context);
}

}

struct MuxerCalls {
    static int write(void* opaque, std::uint8_t* bytes, int size) {
        auto* output = static_cast<Muxer*>(opaque);
        for (int done = 0; done < size;) {
            const ssize_t more = pwrite(output->file.descriptor(), bytes + done,
                                        static_cast<std::size_t>(size - done), output->position);
            if (more < 0 && errno == EINTR) continue;
            if (more < 0) {
                output->failure = errno;
                return AVERROR(errno);
            }
            done += static_cast<int>(more);
            output->position += more;
        }
        return size;
    }

    static std::int64_t seek(void* opaque, std::int64_t offset, int whence) {
        auto* output = static_cast<Muxer*>(opaque);
        const std::int64_t there = sought(output->file.descriptor(), output->position, offset, whence);
        if (!(whence & AVSEEK_SIZE) && there >= 0) output->position = there;
        return there;
    }

    static int openAgain(AVFormatContext* format, AVIOContext** made, const char*, int, AVDictionary**) {
        auto* output = static_cast<Muxer*>(format->opaque);
        auto* reading = new (std::nothrow) ReadBack{output->file.descriptor()};
        *made = reading ? context(0, reading, readMore, nullptr, seekReading) : nullptr;
        if (!*made) delete reading;
        return *made ? 0 : AVERROR(ENOMEM);
    }

    static int closeAgain(AVFormatContext*, AVIOContext* made) {
        delete static_cast<ReadBack*>(made->opaque);
        release(made);
        return 0;
    }
};

Muxer::Muxer(const std::filesystem::path& path) : file(path) {
    writing = context(1, this, nullptr, MuxerCalls::write, MuxerCalls::seek);
    if (!writing || avformat_alloc_output_context2(&format, nullptr, "mp4", nullptr) < 0) {
        release(writing);
        throw std::bad_alloc();
    }
    format->pb = writing;
    format->opaque = this;
    format->io_open = MuxerCalls::openAgain;
    format->io_close2 = MuxerCalls::closeAgain;
    format->flags |= AVFMT_FLAG_CUSTOM_IO;
}

Muxer::~Muxer() {
    avformat_free_context(format);
    release(writing);
}

void Muxer::check(int error) const {
    if (error >= 0 && failure == 0) return;
    file.fail(failure != 0 ? failure : error < 0 && error > -4096 ? AVUNERROR(error) : EIO);
}

AVStream* Muxer::addTrack(const AVCodecContext& codec) {
    AVStream* track = avformat_new_stream(format, nullptr);
    if (!track || avcodec_parameters_from_context(track->codecpar, &codec) < 0) throw std::bad_alloc();
    track->time_base = codec.time_base;
    track->avg_frame_rate = codec.framerate;
    return track;
}

void Muxer::begin() {
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "+faststart", 0);
    const int error = avformat_write_header(format, &options);
    av_dict_free(&options);
    check(error);
}

void Muxer::write(AVPacket& packet, AVRational timeBase, const AVStream* track) {
    packet.stream_index = track->index;
    av_packet_rescale_ts(&packet, timeBase, track->time_base);
    check(av_interleaved_write_frame(format, &packet));
}

void Muxer::finish() {
    check(av_write_trailer(format));
    avio_flush(writing);
    check(writing->error);
    file.finish();
}

}
