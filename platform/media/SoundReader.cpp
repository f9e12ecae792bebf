#include "platform/media/SoundReader.h"

#include "platform/base/Problem.h"
#include "platform/media/Demuxer.h"
#include "platform/media/FileEnd.h"
#include "platform/media/SoundConverter.h"
#include "platform/media/Stopped.h"
#include "platform/media/VorbisTimes.h"

#include <limits>

namespace murbo {

namespace {

// Decoded and thrown away before the place asked for: decoders of packed sound need what came before.
constexpr double preRoll = 0.25;
// Reading on over this much costs about as much as a jump.
constexpr std::int64_t reachAhead = 2 * Sound::rate;
// Kept from before the place read last, for a caller that steps back a little.
constexpr std::int64_t keptBehind = Sound::rate / 2;
constexpr double firstStepBack = 1;
// Reading on through a broken stretch stops after this many packets, until the next call.
constexpr int maxPacketsInVain = 2000;
// Sound comes out of a decoder less than this after the packets that go in.
constexpr std::int64_t maxHeldBack = Sound::rate;
// After any sound, and safe to calculate with.
constexpr std::int64_t farthest = std::int64_t{1} << 50;

AVStream* trackOf(const Demuxer& input, int track) {
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

struct SoundReader::SoundSearch {
    SoundSearch(const std::filesystem::path& path, int track)
        : input(path), stream(trackOf(input, track)), codec(openedCodec(stream)), length(lengthOf()) {
        input.readOnly(stream);
        timesAreEnds = VorbisTimes::areEnds(input, stream);
    }

    double lengthOf() const;
    bool reaches(std::int64_t from) const;
    void jump(std::int64_t from);
    bool pull();
    void feed();
    void pass();
    bool landed(std::int64_t from) const;
    void restart(double seconds, bool fromStart);
    std::int64_t placeOf(const AVFrame& sound) const;
    std::int64_t gridStart(const AVFrame& sound) const;
    int gridOf(const AVFrame& sound) const;
    void read(std::int64_t from, std::int64_t until);

    Demuxer input;
    AVStream* stream;
    ffmpeg::CodecContext codec;
    double length = 0;
    bool timesAreEnds = false;
    ffmpeg::Packet packet = ffmpeg::makePacket();
    ffmpeg::Picture sound = ffmpeg::makePicture();
    SoundConverter converter;

    std::int64_t readyFrom = std::numeric_limits<std::int64_t>::max();
    std::int64_t trackEnd = std::numeric_limits<std::int64_t>::max(); ///< once it is known
    std::int64_t firstPlace = 0; ///< in frames, of the first sound after the last jump
    int grid = 0;                ///< samples that each of the codec's frames holds, as far as they say
    bool anything = false;       ///< whether there was any
    Stopped stopped = Stopped::no;
    std::int64_t passed = INT64_MIN; ///< in frames: up to there nothing more will come
    bool drained = false;
    int packetsInVain = 0;
};

double SoundReader::SoundSearch::lengthOf() const {
    if (stream->duration == AV_NOPTS_VALUE || stream->start_time == AV_NOPTS_VALUE)
        return FileEnd::length(input);
    return std::max(0.0, input.seconds(stream->start_time + stream->duration, stream));
}

bool SoundReader::SoundSearch::reaches(std::int64_t from) const {
    if (from < readyFrom) return false;
    return stopped == Stopped::atEnd || from <= std::max({converter.end(), passed, readyFrom}) + reachAhead;
}

// Whole frames at the track's own rate. Times that are rounded to a millisecond are put on the grid of the
// codec's frames, so that a jump lands on the very sample that reading through comes to.
std::int64_t SoundReader::SoundSearch::placeOf(const AVFrame& given) const {
    if (given.best_effort_timestamp == AV_NOPTS_VALUE) return converter.expected();
    const double rate = given.sample_rate;
    const auto told = std::llround(input.seconds(given.best_effort_timestamp, stream) * rate);
    const auto place = timesAreEnds ? told - given.nb_samples : told;
    const double tick = av_q2d(stream->time_base) * rate;
    if (tick <= 1 || stream->start_time == AV_NOPTS_VALUE) return place;
    const std::int64_t origin = gridStart(given);
    if (timesAreEnds && static_cast<double>(std::abs(place - origin)) <= tick) return origin;
    if (grid <= 0) return place;
    const auto end = place + given.nb_samples;
    const auto snapped = origin + std::llround(static_cast<double>(end - origin) / grid) * grid;
    return static_cast<double>(std::abs(snapped - end)) <= 2.1 * tick ? snapped - given.nb_samples : place;
}

// Where the first of the codec's frames begins, start-up included, in the track's own samples.
std::int64_t SoundReader::SoundSearch::gridStart(const AVFrame& given) const {
    const int padding = stream->codecpar->initial_padding;
    if (stream->start_time < 0 && padding > 0 && given.sample_rate == stream->codecpar->sample_rate)
        return -padding;
    return std::llround(input.seconds(stream->start_time, stream) * given.sample_rate);
}

// How many samples each of the codec's frames holds; 0 where that differs.
int SoundReader::SoundSearch::gridOf(const AVFrame& given) const {
    const AVCodecID id = stream->codecpar->codec_id;
    const bool uneven = id == AV_CODEC_ID_VORBIS || av_get_exact_bits_per_sample(id) > 0;
    if (uneven) return 0;
    // Opus frames are whole multiples of 2.5 ms; the first one is given without its start-up.
    const double told = static_cast<double>(packet->duration) * av_q2d(stream->time_base) * given.sample_rate;
    if (id == AV_CODEC_ID_OPUS && told > 0) return static_cast<int>(std::llround(told / 120) * 120);
    return stream->codecpar->frame_size > 0 ? stream->codecpar->frame_size : given.nb_samples;
}

// One more stretch of decoded sound; false when all is over, and where nothing more comes for now.
bool SoundReader::SoundSearch::pull() {
    while (stopped == Stopped::no) {
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
        if (error == AVERROR_EOF)
            stopped = Stopped::atEnd;
        else if (error == AVERROR(ENOMEM))
            stopped = Stopped::failed;
        else if (error != 0)
            feed();
    }
    converter.finish();
    return false;
}

// Gives the decoder one more packet, says that it is the end, or stops.
void SoundReader::SoundSearch::feed() {
    if (packetsInVain >= maxPacketsInVain) {
        stopped = Stopped::inVain;
    } else if (input.read(packet.get())) {
        if (++packetsInVain >= maxPacketsInVain) pass();
        avcodec_send_packet(codec.get(), packet.get());
    } else if (!input.isAtEnd()) {
        stopped = input.isTooSlow() ? Stopped::failed : Stopped::inVain;
    } else if (std::exchange(drained, true) || avcodec_send_packet(codec.get(), nullptr) < 0) {
        stopped = Stopped::atEnd;
    }
}

// What lies before this packet came to nothing, and need not be tried again.
void SoundReader::SoundSearch::pass() {
    if (packet->pts == AV_NOPTS_VALUE) return;
    const double seconds = std::clamp(input.seconds(packet->pts, stream), -1e9, 1e9);
    passed = std::max(passed, std::int64_t{std::llround(seconds * Sound::rate)} - maxHeldBack);
}

void SoundReader::SoundSearch::restart(double seconds, bool fromStart) {
    avcodec_flush_buffers(codec.get());
    converter.restart();
    anything = drained = false;
    stopped = Stopped::no;
    passed = INT64_MIN;
    packetsInVain = 0;
    const bool there = fromStart ? input.rewind() : input.seek(stream, seconds);
    if (there) pull();
}

// Sound must come early enough to warm the decoder up.
bool SoundReader::SoundSearch::landed(std::int64_t from) const {
    return anything && firstPlace <= from - static_cast<std::int64_t>(preRoll / 2 * Sound::rate);
}

// Where a jump lands is the format's guess: it counts only by what it finds.
void SoundReader::SoundSearch::jump(std::int64_t from) {
    const double first = stream->start_time == AV_NOPTS_VALUE ? 0 : input.seconds(stream->start_time, stream);
    const double wanted = static_cast<double>(from) / Sound::rate - preRoll;
    for (double back = 0;; back = std::max(back * 2, firstStepBack)) {
        const bool fromStart = wanted - back <= first || back > 1e6;
        restart(wanted - back, fromStart);
        if (landed(from) || stopped == Stopped::failed) break;
        if (!fromStart) continue;
        // All before may be broken: then what the first try found is all there is.
        if (stopped == Stopped::inVain && back > 0) restart(wanted, false);
        break;
    }
    readyFrom = from;
}

void SoundReader::SoundSearch::read(std::int64_t from, std::int64_t until) {
    if (stopped == Stopped::inVain) stopped = Stopped::no;
    packetsInVain = 0;
    const auto lacking = [&] { return std::max(converter.end(), passed) < until; };
    if (!reaches(from) || (stopped == Stopped::failed && lacking())) jump(from);
    while (lacking() && pull()) {
    }
    if (stopped == Stopped::atEnd && anything) trackEnd = std::max<std::int64_t>(0, converter.end());
}

SoundReader::SoundReader(std::unique_ptr<SoundSearch> given) : search(std::move(given)) {}
SoundReader::SoundReader(SoundReader&&) noexcept = default;
SoundReader& SoundReader::operator=(SoundReader&&) noexcept = default;
SoundReader::~SoundReader() = default;

SoundReader SoundReader::open(const std::filesystem::path& path, int track) {
    return SoundReader(std::make_unique<SoundSearch>(path, track));
}

double SoundReader::length() const {
    return search->length;
}

std::int64_t SoundReader::read(std::int64_t from, std::span<float> into) {
    std::fill(into.begin(), into.end(), 0.0f);
    from = std::clamp(from, -farthest, farthest);
    const auto until = from + static_cast<std::int64_t>(into.size() / Sound::channels);
    if (until <= 0 || from >= search->trackEnd) return 0;
    search->read(std::max<std::int64_t>(0, from), until);
    const std::int64_t held = search->converter.copy(from, into);
    // Sound from before the file's zero has no place.
    if (from < 0) std::fill_n(into.begin(), std::min<std::size_t>(into.size(), -from * 2), 0.0f);
    const std::int64_t keep = until - keptBehind;
    search->converter.forget(keep);
    search->readyFrom = std::max(search->readyFrom, keep);
    return held;
}

}
