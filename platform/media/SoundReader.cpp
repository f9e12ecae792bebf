#include "platform/media/SoundReader.h"

#include "platform/base/Problem.h"
#include "platform/media/FileEnd.h"
#include "platform/media/Input.h"
#include "platform/media/SoundConverter.h"

#include <limits>

namespace murbo {

namespace {

// Decoded and thrown away before the place asked for: decoders of packed sound need what came before.
constexpr double preRoll = 0.25;
// Reading on over this much costs about as much as a jump.
constexpr std::int64_t reachAhead = 2 * Sound::rate;
// Kept behind the place read last, for the one who steps back a little.
constexpr std::int64_t keptBehind = Sound::rate / 2;
constexpr double firstStepBack = 1;
constexpr int mostPacketsInVain = 2000;
// Behind any sound, and safe to calculate with.
constexpr std::int64_t farthest = std::int64_t{1} << 50;

AVStream* trackOf(const Input& input, int track) {
    const auto tracks = input.sounds();
    if (track >= 0 && track < static_cast<int>(tracks.size())) return tracks[track];
    const std::string name = "“" + input.path().filename().string() + "”";
    throw Problem(tracks.empty() ? name + " has no sound."
                                 : name + " has no sound track " + std::to_string(track + 1) + ".");
}

ffmpeg::CodecContext openedCodec(const AVStream* stream) {
    const AVCodec* decoder = avcodec_find_decoder(stream->codecpar->codec_id);
    ffmpeg::CodecContext codec(avcodec_alloc_context3(decoder));
    if (!codec) throw std::bad_alloc();
    avcodec_parameters_to_context(codec.get(), stream->codecpar);
    codec->pkt_timebase = stream->time_base;
    codec->thread_count = 1;
    if (const int error = avcodec_open2(codec.get(), decoder, nullptr); error < 0)
        throw Problem("The sound could not be decoded: " + ffmpeg::words(error) + ".");
    return codec;
}

}

struct SoundReader::Parts {
    Parts(const std::filesystem::path& path, int track)
        : input(path), stream(trackOf(input, track)), codec(openedCodec(stream)), length(lengthOf()) {
        input.readOnly(stream);
    }

    double lengthOf() const;
    bool reaches(std::int64_t from) const;
    void jump(std::int64_t from);
    bool pull();
    bool feed();
    std::int64_t placeOf(const AVFrame& sound) const;
    std::int64_t gridStart(const AVFrame& sound) const;
    int gridOf(const AVFrame& sound) const;
    void read(std::int64_t from, std::int64_t until);

    Input input;
    AVStream* stream;
    ffmpeg::CodecContext codec;
    double length = 0;
    ffmpeg::Packet packet = ffmpeg::makePacket();
    ffmpeg::Picture sound = ffmpeg::makePicture();
    SoundConverter converter;

    std::int64_t readyFrom = std::numeric_limits<std::int64_t>::max();
    std::int64_t trackEnd = std::numeric_limits<std::int64_t>::max(); ///< once it was met
    std::int64_t firstPlace = 0; ///< in frames, of the first sound behind the last jump
    int grid = 0;                ///< samples that each of the codec's frames holds, as far as they tell
    bool anything = false;       ///< whether there was any
    bool ended = false;
    bool drained = false;
    int packetsInVain = 0;
};

double SoundReader::Parts::lengthOf() const {
    if (stream->duration == AV_NOPTS_VALUE || stream->start_time == AV_NOPTS_VALUE)
        return FileEnd::length(input);
    return std::max(0.0, input.seconds(stream->start_time + stream->duration, stream));
}

bool SoundReader::Parts::reaches(std::int64_t from) const {
    if (from < readyFrom) return false;
    return ended || from <= std::max(converter.end(), readyFrom) + reachAhead;
}

// Whole frames at the track's own rate. Times that are rounded to a millisecond are put on the grid of the
// codec's frames, so that a jump lands on the very sample that reading through comes to.
std::int64_t SoundReader::Parts::placeOf(const AVFrame& given) const {
    if (given.best_effort_timestamp == AV_NOPTS_VALUE) return converter.expected();
    const double rate = given.sample_rate;
    const auto place = std::llround(input.seconds(given.best_effort_timestamp, stream) * rate);
    const double tick = av_q2d(stream->time_base) * rate;
    if (tick <= 1 || grid <= 0 || stream->start_time == AV_NOPTS_VALUE) return place;
    const std::int64_t origin = gridStart(given);
    const auto end = place + given.nb_samples;
    const auto snapped = origin + std::llround(static_cast<double>(end - origin) / grid) * grid;
    return static_cast<double>(std::abs(snapped - end)) <= 2.1 * tick ? snapped - given.nb_samples : place;
}

// Where the first of the codec's frames begins, start-up included, in the track's own samples.
std::int64_t SoundReader::Parts::gridStart(const AVFrame& given) const {
    const int padding = stream->codecpar->initial_padding;
    if (stream->start_time < 0 && padding > 0 && given.sample_rate == stream->codecpar->sample_rate)
        return -padding;
    return std::llround(input.seconds(stream->start_time, stream) * given.sample_rate);
}

// How many samples each of the codec's frames holds; 0 where that differs.
int SoundReader::Parts::gridOf(const AVFrame& given) const {
    const AVCodecID id = stream->codecpar->codec_id;
    const bool uneven = id == AV_CODEC_ID_VORBIS || av_get_exact_bits_per_sample(id) > 0;
    if (uneven) return 0;
    // Opus frames are whole multiples of 2.5 ms; the first one is given without its start-up.
    const double told = static_cast<double>(packet->duration) * av_q2d(stream->time_base) * given.sample_rate;
    if (id == AV_CODEC_ID_OPUS && told > 0) return static_cast<int>(std::llround(told / 120) * 120);
    return stream->codecpar->frame_size > 0 ? stream->codecpar->frame_size : given.nb_samples;
}

// One more stretch of decoded sound; false when all is over.
bool SoundReader::Parts::pull() {
    while (!ended) {
        const int error = avcodec_receive_frame(codec.get(), sound.get());
        if (error == 0 && sound->sample_rate > 0 && sound->nb_samples > 0) {
            packetsInVain = 0;
            // The first one may be cut short.
            grid = std::max(grid, gridOf(*sound));
            const std::int64_t place = placeOf(*sound);
            if (!std::exchange(anything, true))
                firstPlace = av_rescale(place, Sound::rate, sound->sample_rate);
            converter.put(*sound, place);
            return true;
        }
        ended = error == AVERROR_EOF || error == AVERROR(ENOMEM) || (error != 0 && !feed());
    }
    converter.finish();
    return false;
}

bool SoundReader::Parts::feed() {
    if (input.read(packet.get())) {
        if (++packetsInVain > mostPacketsInVain) return false;
        avcodec_send_packet(codec.get(), packet.get());
        return true;
    }
    if (std::exchange(drained, true)) return false;
    return avcodec_send_packet(codec.get(), nullptr) >= 0;
}

// Where a jump lands is the format's guess: it counts only if sound comes early enough to warm the decoder
// up.
void SoundReader::Parts::jump(std::int64_t from) {
    const double first = stream->start_time == AV_NOPTS_VALUE ? 0 : input.seconds(stream->start_time, stream);
    const double wanted = static_cast<double>(from) / Sound::rate - preRoll;
    for (double back = 0;; back = std::max(back * 2, firstStepBack)) {
        const bool fromStart = wanted - back <= first || back > 1e6;
        avcodec_flush_buffers(codec.get());
        converter.restart();
        anything = ended = drained = false;
        packetsInVain = 0;
        const bool there = fromStart ? input.rewind() : input.seek(stream, wanted - back);
        if (there) pull();
        if (fromStart ||
            (anything && firstPlace <= from - static_cast<std::int64_t>(preRoll / 2 * Sound::rate)))
            break;
    }
    readyFrom = from;
}

void SoundReader::Parts::read(std::int64_t from, std::int64_t until) {
    if (!reaches(from)) jump(from);
    while (converter.end() < until && pull()) {
    }
    if (ended) trackEnd = std::max<std::int64_t>(0, converter.end());
}

SoundReader::SoundReader(std::unique_ptr<Parts> given) : parts(std::move(given)) {}
SoundReader::SoundReader(SoundReader&&) noexcept = default;
SoundReader& SoundReader::operator=(SoundReader&&) noexcept = default;
SoundReader::~SoundReader() = default;

SoundReader SoundReader::open(const std::filesystem::path& path, int track) {
    return SoundReader(std::make_unique<Parts>(path, track));
}

double SoundReader::length() const {
    return parts->length;
}

std::int64_t SoundReader::read(std::int64_t from, std::span<float> into) {
    std::fill(into.begin(), into.end(), 0.0f);
    from = std::clamp(from, -farthest, farthest);
    const auto until = from + static_cast<std::int64_t>(into.size() / Sound::channels);
    if (until <= 0 || from >= parts->trackEnd) return 0;
    parts->read(std::max<std::int64_t>(0, from), until);
    const std::int64_t held = parts->converter.copy(from, into);
    // Sound from before the file's zero has no place.
    if (from < 0) std::fill_n(into.begin(), std::min<std::size_t>(into.size(), -from * 2), 0.0f);
    const std::int64_t keep = until - keptBehind;
    parts->converter.forget(keep);
    parts->readyFrom = std::max(parts->readyFrom, keep);
    return held;
}

}
