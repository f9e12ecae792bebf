#include "platform/media/PictureDecoder.h"

#include "platform/base/Problem.h"

#include <thread>

namespace murbo {

namespace {

// Pictures this close before a winding's goal are all decoded: it covers the goal's neighbours.
constexpr double fullyDecoded = 0.5;
// No decoder holds back this many packets before its first picture.
constexpr int maxPacketsInVain = 1000;
// 16384 x 8192 is above all that is recorded; a header may claim anything.
constexpr std::int64_t maxPixels = std::int64_t{1} << 27;
constexpr int maxThreads = 8;
constexpr std::int64_t largePicture = 1280 * 720;
// Where each picture stands for itself, sampling decodes one in this many seconds.
constexpr double sampledEvery = 0.1;

bool hasAlphaBeside(const AVStream* stream) {
    const AVDictionaryEntry* entry = av_dict_get(stream->metadata, "alpha_mode", nullptr, 0);
    return entry && std::string_view(entry->value) == "1";
}

// The libraries' own VP8 and VP9 decoders leave out the alpha that WebM carries beside the picture.
const AVCodec* decoderFor(const AVStream* stream) {
    const AVCodecID id = stream->codecpar->codec_id;
    const AVCodec* codec = nullptr;
    if (hasAlphaBeside(stream) && id == AV_CODEC_ID_VP8) codec = avcodec_find_decoder_by_name("libvpx");
    if (hasAlphaBeside(stream) && id == AV_CODEC_ID_VP9) codec = avcodec_find_decoder_by_name("libvpx-vp9");
    return codec ? codec : avcodec_find_decoder(id);
}

// In HEVC a picture that its own temporal layer does not need may be needed by a higher one. The
// configuration record holds in its 22nd byte how many layers there are.
bool nothingDependsOnNonReferences(const AVCodecParameters& parameters) {
    if (parameters.codec_id != AV_CODEC_ID_HEVC) return true;
    return parameters.extradata_size > 22 && parameters.extradata[0] == 1 &&
           ((parameters.extradata[21] >> 3) & 7) == 1;
}

// AVI numbers its packets and holds no times: where pictures come in another order than their packets, all
// seem later by as many as the decoder holds back.
bool countsPacketsOnly(const Demuxer& input, const AVStream& stream) {
    return std::string_view(input.context()->iformat->name) == "avi" && stream.codecpar->video_delay > 0;
}

int threadCount() {
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, maxThreads);
}

ffmpeg::CodecContext openedCodec(const AVStream* stream, PictureDecoder::Threads threads) {
    const AVCodec* decoder = decoderFor(stream);
    ffmpeg::CodecContext codec(avcodec_alloc_context3(decoder));
    if (!codec) throw std::bad_alloc();
    avcodec_parameters_to_context(codec.get(), stream->codecpar);
    codec->pkt_timebase = stream->time_base;
    codec->max_pixels = maxPixels;
    const bool several = threads == PictureDecoder::Threads::several;
    codec->thread_type = several ? FF_THREAD_FRAME | FF_THREAD_SLICE : FF_THREAD_SLICE;
    codec->thread_count = threadCount();
    if (const int error = avcodec_open2(codec.get(), decoder, nullptr); error < 0)
        throw Problem("The picture could not be decoded: " + ffmpeg::words(error) + ".");
    return codec;
}

}

PictureDecoder::PictureDecoder(Demuxer& from, AVStream* track, Threads threads)
    : input(from), stream(track), codec(openedCodec(track, threads)) {
    mayWind = nothingDependsOnNonReferences(*stream->codecpar);
    windMargin = static_cast<std::int64_t>(fullyDecoded / av_q2d(stream->time_base));
    if (countsPacketsOnly(input, *stream)) measureLateness();
}

// The first picture comes on at the track's start; that it comes out later is the decoder's delay.
void PictureDecoder::measureLateness() {
    const auto first = next();
    if (first && stream->start_time != AV_NOPTS_VALUE)
        lateness = std::max<std::int64_t>(0, first->ticks - stream->start_time);
    rewind();
}

void PictureDecoder::onlySample() {
    sampling = true;
    const AVCodecParameters& parameters = *stream->codecpar;
    // Whoever samples large pictures reduces them, and then the edges of their blocks are gone too.
    if (std::int64_t{parameters.width} * parameters.height >= largePicture)
        codec->skip_loop_filter = AVDISCARD_ALL;
    const AVCodecDescriptor* kind = avcodec_descriptor_get(parameters.codec_id);
    if (kind && kind->props & AV_CODEC_PROP_INTRA_ONLY)
        sampleStep = static_cast<std::int64_t>(sampledEvery / av_q2d(stream->time_base));
}

void PictureDecoder::restart() {
    avcodec_flush_buffers(codec.get());
    deinterlacer.reset();
    windEnd = leftOut = farthest = lastGiven = firstKey = INT64_MIN;
    lastSampled = INT64_MIN;
    drained = false;
    stopped = Stopped::no;
    packetsInVain = 0;
}

bool PictureDecoder::seek(double seconds) {
    restart();
    fromStart = false;
    waitsForKey = neighbourMissing = true;
    return input.seek(stream, seconds);
}

bool PictureDecoder::rewind() {
    restart();
    fromStart = true;
    waitsForKey = neighbourMissing = false;
    return input.rewind();
}

std::optional<PictureDecoder::Decoded> PictureDecoder::next() {
    if (stopped == Stopped::inVain) stopped = Stopped::no;
    packetsInVain = 0;
    for (;;) {
        if (deinterlacer && deinterlacer->take(picture.get())) {
            // The first one lacked the neighbour before it, and looks otherwise than when read up to.
            if (!std::exchange(neighbourMissing, false)) return given(picture->pts);
            continue;
        }
        if (!receive()) {
            if (!isAtEnd() || !deinterlacer || !deinterlacer->end()) return std::nullopt;
            continue;
        }
        const std::int64_t ticks = timeOf(*picture);
        if (ticks < firstKey || ticks <= lastGiven) continue;
        lastGiven = picture->pts = ticks;
        if (!deinterlace()) return given(ticks);
    }
}

// Whether the picture went into the deinterlacer, and comes out of it in time.
bool PictureDecoder::deinterlace() {
    if (sampling || (!deinterlacer && !picture->interlaced_frame)) return neighbourMissing = false;
    if (!deinterlacer || !deinterlacer->takes(*picture))
        deinterlacer = Deinterlacer::make(*picture, stream->time_base);
    return deinterlacer && deinterlacer->put(picture.get());
}

std::optional<PictureDecoder::Decoded> PictureDecoder::given(std::int64_t ticks) {
    return Decoded{ticks, std::exchange(picture, ffmpeg::makePicture())};
}

// The next picture out of the decoder itself, into `picture`.
bool PictureDecoder::receive() {
    while (stopped == Stopped::no) {
        av_frame_unref(picture.get());
        const int error = avcodec_receive_frame(codec.get(), picture.get());
        if (error == 0) {
            packetsInVain = 0;
            return true;
        }
        // Any other error is one broken picture; those after it may be whole.
        if (error == AVERROR_EOF)
            stopped = Stopped::atEnd;
        else if (error == AVERROR(ENOMEM))
            stopped = Stopped::failed;
        else
            feed();
    }
    return false;
}

// Gives the decoder one more packet, says that it is the end, or stops.
void PictureDecoder::feed() {
    while (packetsInVain < maxPacketsInVain && input.read(packet.get())) {
        if (!isUsable(*packet)) continue;
        if (isBetweenSamples(*packet)) continue;
        chooseSkipping(*packet);
        if (!(packet->flags & AV_PKT_FLAG_DISCARD)) ++packetsInVain;
        avcodec_send_packet(codec.get(), packet.get());
        return;
    }
    if (packetsInVain >= maxPacketsInVain)
        stopped = Stopped::inVain;
    else if (!input.isAtEnd())
        stopped = input.isTooSlow() ? Stopped::failed : Stopped::inVain;
    else if (std::exchange(drained, true) || avcodec_send_packet(codec.get(), nullptr) < 0)
        stopped = Stopped::atEnd;
}

bool PictureDecoder::isUsable(const AVPacket& given) {
    if (!waitsForKey) return true;
    if (!(given.flags & AV_PKT_FLAG_KEY)) return false;
    waitsForKey = false;
    firstKey = given.pts == AV_NOPTS_VALUE ? INT64_MIN : given.pts;
    return true;
}

bool PictureDecoder::isBetweenSamples(const AVPacket& given) {
    if (sampleStep == 0 || given.pts == AV_NOPTS_VALUE) return false;
    // Without signs, as a file may hold any two times.
    const std::uint64_t since =
        static_cast<std::uint64_t>(given.pts) - static_cast<std::uint64_t>(lastSampled);
    if (given.pts >= lastSampled && since < static_cast<std::uint64_t>(sampleStep)) return true;
    lastSampled = given.pts;
    return false;
}

void PictureDecoder::chooseSkipping(const AVPacket& given) {
    const std::int64_t ticks = given.pts == AV_NOPTS_VALUE ? given.dts : given.pts;
    const bool known = ticks != AV_NOPTS_VALUE;
    const bool winding = mayWind && known && windEnd != INT64_MIN && ticks < windEnd - windMargin;
    codec->skip_frame = winding || (sampling && mayWind) ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    if (known) farthest = std::max(farthest, ticks);
    if (winding && !(given.flags & AV_PKT_FLAG_DISCARD)) leftOut = std::max(leftOut, ticks);
}

// A picture without a time follows the one before it at the track's rate. Where there was none since a jump,
// the decoder kept it back to the very end: it came on with the last packet.
std::int64_t PictureDecoder::timeOf(const AVFrame& shown) {
    if (shown.best_effort_timestamp != AV_NOPTS_VALUE) return shown.best_effort_timestamp - lateness;
    if (lastGiven == INT64_MIN && !fromStart && farthest != INT64_MIN) return farthest;
    if (lastGiven == INT64_MIN) return stream->start_time == AV_NOPTS_VALUE ? 0 : stream->start_time;
    const AVRational rate = av_guess_frame_rate(input.context(), stream, nullptr);
    const AVRational step = rate.num > 0 ? av_inv_q(rate) : AVRational{1, 25};
    return lastGiven + std::max<std::int64_t>(1, av_rescale_q(1, step, stream->time_base));
}

}
