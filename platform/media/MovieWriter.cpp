#include "platform/media/MovieWriter.h"

#include "platform/base/Problem.h"
#include "platform/media/Muxer.h"
#include "platform/media/SoundReader.h"

#include <cerrno>

namespace murbo {

namespace {

constexpr std::int64_t soundBitRate = 192000;

const AVCodec* encoder(const char* name, const char* what) {
    if (const AVCodec* found = avcodec_find_encoder_by_name(name)) return found;
    throw Problem(std::string("There is no encoder for ") + what + " on this machine.");
}

void check(int error, const char* what) {
    if (error < 0)
        throw Problem(std::string("The ") + what + " could not be encoded: " + ffmpeg::words(error) + ".");
}

void tagColour(AVCodecContext& codec) {
    codec.color_primaries = AVCOL_PRI_BT709;
    codec.color_trc = AVCOL_TRC_BT709;
    codec.colorspace = AVCOL_SPC_BT709;
    codec.color_range = AVCOL_RANGE_MPEG;
    codec.chroma_sample_location = AVCHROMA_LOC_LEFT;
}

ffmpeg::CodecContext pictureEncoder(const MovieSettings& settings) {
    const AVCodec* x264 = encoder("libx264", "H.264 pictures");
    ffmpeg::CodecContext codec(avcodec_alloc_context3(x264));
    if (!codec) throw std::bad_alloc();
    codec->width = settings.width;
    codec->height = settings.height;
    codec->pix_fmt = AV_PIX_FMT_YUV420P;
    codec->time_base = {1, settings.rate};
    codec->framerate = {settings.rate, 1};
    codec->sample_aspect_ratio = {1, 1};
    codec->thread_count = settings.threads;
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    tagColour(*codec);
    AVDictionary* options = nullptr;
    av_dict_set(&options, "preset", settings.preset.c_str(), 0);
    av_dict_set(&options, "crf", std::to_string(settings.quality).c_str(), 0);
    if (settings.lookahead > 0) av_dict_set_int(&options, "rc-lookahead", settings.lookahead, 0);
    const int error = avcodec_open2(codec.get(), x264, &options);
    av_dict_free(&options);
    check(error, "picture");
    return codec;
}

ffmpeg::CodecContext soundEncoder() {
    const AVCodec* aac = encoder("aac", "AAC sound");
    ffmpeg::CodecContext codec(avcodec_alloc_context3(aac));
    if (!codec) throw std::bad_alloc();
    codec->bit_rate = soundBitRate;
    codec->sample_fmt = AV_SAMPLE_FMT_FLTP;
    codec->sample_rate = Sound::rate;
    codec->time_base = {1, Sound::rate};
    codec->ch_layout = AV_CHANNEL_LAYOUT_STEREO;
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    check(avcodec_open2(codec.get(), aac, nullptr), "sound");
    return codec;
}

// The encoder reads the planes where they lie; `keeper` goes when it has done with them.
ffmpeg::Picture borrowed(const Planes& planes) {
    ffmpeg::Picture picture = ffmpeg::makePicture();
    auto* keeper = new std::shared_ptr<const void>(planes.keeper());
    const auto release = [](void* held, std::uint8_t*) {
        delete static_cast<std::shared_ptr<const void>*>(held);
    };
    auto* first = const_cast<std::uint8_t*>(planes.plane(0));
    picture->buf[0] = av_buffer_create(first, 1, release, keeper, AV_BUFFER_FLAG_READONLY);
    if (!picture->buf[0]) {
        delete keeper;
        throw std::bad_alloc();
    }
    picture->format = AV_PIX_FMT_YUV420P;
    picture->width = planes.width();
    picture->height = planes.height();
    for (int index = 0; index < 3; ++index) {
        picture->data[index] = const_cast<std::uint8_t*>(planes.plane(index));
        picture->linesize[index] = static_cast<int>(planes.stride(index));
    }
    return picture;
}

void refuseWhatIsNoMovie(const MovieSettings& settings) {
    const auto isSide = [](int side) { return side > 0 && side % 2 == 0 && side <= 16384; };
    if (!isSide(settings.width) || !isSide(settings.height) || settings.rate < 1 || settings.rate > 1000)
        throw Problem("A movie's width and height must be even, and its frame rate between 1 and 1000.");
}

}

struct MovieWriter::Encoding {
    Encoding(const std::filesystem::path& path, const MovieSettings& given)
        : settings(given), output(path), pictures(pictureEncoder(given)) {
        if (settings.sound) sounds = soundEncoder();
        pictureTrack = output.addTrack(*pictures);
        if (sounds) soundTrack = output.addTrack(*sounds);
        output.begin();
    }

    void encode(AVCodecContext& codec, AVStream* track, const AVFrame* frame, const char* what);
    void soundFrame(std::span<const float> interleaved);

    MovieSettings settings;
    Muxer output;
    ffmpeg::CodecContext pictures;
    ffmpeg::CodecContext sounds;
    AVStream* pictureTrack = nullptr;
    AVStream* soundTrack = nullptr;
    ffmpeg::Packet packet = ffmpeg::makePacket();
    std::vector<float> waiting; ///< sound that does not fill an encoder's frame yet
    std::int64_t picturesGiven = 0;
    std::int64_t soundGiven = 0;
};

void MovieWriter::Encoding::encode(AVCodecContext& codec, AVStream* track, const AVFrame* frame,
                                   const char* what) {
    check(avcodec_send_frame(&codec, frame), what);
    for (;;) {
        const int error = avcodec_receive_packet(&codec, packet.get());
        if (error == AVERROR(EAGAIN) || error == AVERROR_EOF) return;
        check(error, what);
        output.write(*packet, codec.time_base, track);
    }
}

void MovieWriter::Encoding::soundFrame(std::span<const float> interleaved) {
    ffmpeg::Picture frame = ffmpeg::makePicture();
    frame->format = AV_SAMPLE_FMT_FLTP;
    frame->sample_rate = Sound::rate;
    frame->ch_layout = AV_CHANNEL_LAYOUT_STEREO;
    frame->nb_samples = static_cast<int>(interleaved.size() / Sound::channels);
    check(av_frame_get_buffer(frame.get(), 0), "sound");
    for (int side = 0; side < Sound::channels; ++side) {
        auto* plane = reinterpret_cast<float*>(frame->extended_data[side]);
        for (int index = 0; index < frame->nb_samples; ++index) {
            const float sample = interleaved[index * Sound::channels + side];
            plane[index] = std::isfinite(sample) ? sample : 0;
        }
    }
    frame->pts = soundGiven;
    soundGiven += frame->nb_samples;
    encode(*sounds, soundTrack, frame.get(), "sound");
}

MovieWriter::MovieWriter(std::unique_ptr<Encoding> given) : encoding(std::move(given)) {}
MovieWriter::MovieWriter(MovieWriter&&) noexcept = default;
MovieWriter& MovieWriter::operator=(MovieWriter&&) noexcept = default;
MovieWriter::~MovieWriter() = default;

MovieWriter MovieWriter::open(const std::filesystem::path& path, const MovieSettings& settings) {
    ffmpeg::quiet();
    refuseWhatIsNoMovie(settings);
    return MovieWriter(std::make_unique<Encoding>(path, settings));
}

void MovieWriter::picture(const Planes& planes) {
    if (planes.width() != encoding->settings.width || planes.height() != encoding->settings.height)
        throw Problem("A picture of another size than the movie's can't be put into it.");
    const ffmpeg::Picture frame = borrowed(planes);
    frame->pts = encoding->picturesGiven++;
    encoding->encode(*encoding->pictures, encoding->pictureTrack, frame.get(), "picture");
}

void MovieWriter::sound(std::span<const float> samples) {
    if (!encoding->sounds) return;
    const std::size_t whole = static_cast<std::size_t>(encoding->sounds->frame_size) * Sound::channels;
    std::vector<float>& waiting = encoding->waiting;
    while (waiting.size() + samples.size() >= whole) {
        const std::size_t taken = whole - waiting.size();
        waiting.insert(waiting.end(), samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(taken));
        samples = samples.subspan(taken);
        encoding->soundFrame(waiting);
        waiting.clear();
    }
    waiting.insert(waiting.end(), samples.begin(), samples.end());
}

void MovieWriter::finish() {
    if (encoding->picturesGiven == 0) throw Problem("A movie needs at least one picture.");
    encoding->encode(*encoding->pictures, encoding->pictureTrack, nullptr, "picture");
    if (encoding->sounds) {
        if (!encoding->waiting.empty()) encoding->soundFrame(encoding->waiting);
        encoding->encode(*encoding->sounds, encoding->soundTrack, nullptr, "sound");
    }
    encoding->output.finish();
}

}
