#include "platform/media/Demuxer.h"

#include "platform/base/Problem.h"

#include <fstream>
#include <limits>

namespace murbo {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto timeToOpen = std::chrono::seconds(20);
constexpr auto timeToRead = std::chrono::seconds(60);
// Torn data makes single reads fail while what follows is whole.
constexpr int maxFailedReads = 32;
constexpr double maxReordering = 1; // seconds by which a coder may put a picture before earlier ones
constexpr int maxLookedAt = 2000;   // packets of a movie that was trimmed

// What cameras, phones, recorders and sound programs write. Left out is what names further files or addresses
// (playlists, scripts, numbered pictures), and text that is played as pictures.
constexpr const char* formats =
    "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,mpegts,mpeg,mpegvideo,flv,ogg,asf,mxf,gxf,dv,nut,ivf,rm,h264,"
    "hevc,"
    "obu,m4v,yuv4mpegpipe,gif,apng,wav,w64,aiff,caf,au,mp3,flac,aac,ac3,eac3,dts,truehd,amr,ape,wv,tta,voc,"
    "mpc,mpc8";

int pastDeadline(void* deadline) {
    return Clock::now() > *static_cast<const Clock::time_point*>(deadline);
}

// A movie whose index is written last and never was: the commonest broken file there is.
bool isMovieWithoutIndex(const std::filesystem::path& path) {
    std::array<char, 8> head{};
    std::ifstream(path, std::ios::binary).read(head.data(), head.size());
    const std::string_view kind(head.data() + 4, 4);
    return kind == "ftyp" || kind == "mdat" || kind == "wide";
}

std::string whyUnreadable(const std::filesystem::path& path, int error) {
    const std::string name = "“" + path.filename().string() + "”";
    if (error == AVERROR_EXIT) return name + " could not be read in time.";
    // Formats that are not on the list, such as playlists, count as an invalid argument.
    if (error != AVERROR_INVALIDDATA && error != AVERROR_EOF && error != AVERROR(EINVAL))
        return name + " could not be read: " + ffmpeg::words(error) + ".";
    if (isMovieWithoutIndex(path))
        return name + " has no index: the recording or the copying of it was cut off. It cannot be read.";
    return name + " is no movie or sound file that can be read.";
}

void refuseWhatIsNoFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    const std::string name = "“" + path.filename().string() + "”";
    if (!std::filesystem::exists(status)) throw Problem("There is no file " + name + ".");
    if (!std::filesystem::is_regular_file(status)) throw Problem(name + " is not a file.");
}

ffmpeg::FormatContext opened(const std::filesystem::path& path, Clock::time_point* deadline) {
    AVFormatContext* format = avformat_alloc_context();
    if (!format) throw std::bad_alloc();
    format->interrupt_callback = {pastDeadline, deadline};
    format->probesize = 16 << 20;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "format_whitelist", formats, 0);
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    // The prefix keeps a colon in the name from being read as a protocol.
    const int error = avformat_open_input(&format, ("file:" + path.string()).c_str(), nullptr, &options);
    av_dict_free(&options);
    if (error < 0) throw Problem(whyUnreadable(path, error));
    return ffmpeg::FormatContext(format);
}

bool isDecodable(const AVStream* stream, AVMediaType type) {
    return stream->codecpar->codec_type == type && avcodec_find_decoder(stream->codecpar->codec_id);
}

bool isPicture(const AVStream* stream) {
    constexpr int noTrack = AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS;
    return isDecodable(stream, AVMEDIA_TYPE_VIDEO) && !(stream->disposition & noTrack) &&
           stream->codecpar->width > 0 && stream->codecpar->height > 0;
}

bool isSound(const AVStream* stream) {
    return isDecodable(stream, AVMEDIA_TYPE_AUDIO) && stream->codecpar->sample_rate > 0 &&
           stream->codecpar->ch_layout.nb_channels > 0;
}

// Sound before 0 is what its coder needs to start up, and is never heard.
double startOf(const AVStream* stream) {
    const double start = static_cast<double>(stream->start_time) * av_q2d(stream->time_base);
    return isSound(stream) ? std::max(0.0, start) : start;
}

double earliestStart(const AVFormatContext* format) {
    double earliest = std::numeric_limits<double>::infinity();
    for (const AVStream* stream : std::span(format->streams, format->nb_streams))
        if ((isPicture(stream) || isSound(stream)) && stream->start_time != AV_NOPTS_VALUE)
            earliest = std::min(earliest, startOf(stream));
    return std::isfinite(earliest) ? earliest : 0;
}

}

Demuxer::Demuxer(const std::filesystem::path& path)
    : place(path), deadline(std::make_unique<Clock::time_point>(Clock::now() + timeToOpen)) {
    ffmpeg::quiet();
    refuseWhatIsNoFile(path);
    format = opened(path, deadline.get());
    // Fails on tracks that it cannot make out; the others are there all the same.
    avformat_find_stream_info(format.get(), nullptr);
    zero = earliestStart(format.get());
    settleTrimmed();
}

// Where a movie was trimmed and no keyframe lies before the cut, the library gives the cut's time to the
// first keyframe, and some of what is shown comes before the track's start. The whole track is that much too
// early.
void Demuxer::settleTrimmed() {
    const AVStream* pictures = picture();
    if (!pictures || pictures->start_time == AV_NOPTS_VALUE || !beginsWithinGroup(pictures)) return;
    const auto packet = ffmpeg::makePacket();
    const std::int64_t start = pictures->start_time;
    const std::int64_t reach = ticks(maxReordering, pictures) - ticks(0, pictures);
    std::int64_t earliest = start;
    for (int count = 0; count < maxLookedAt && read(packet.get()); ++count) {
        const std::int64_t time = packet->pts;
        if (packet->stream_index != pictures->index || time == AV_NOPTS_VALUE) continue;
        if (time > av_sat_add64(start, reach)) break;
        const bool shown = !(packet->flags & AV_PKT_FLAG_DISCARD);
        if (shown && time > av_sat_sub64(start, reach)) earliest = std::min(earliest, time);
    }
    rewind();
    lastError = 0;
    if (earliest == start) return;
    early = start - earliest;
    earlyTrack = pictures->index;
}

// Whether a movie's index begins with a picture that others are needed for.
bool Demuxer::beginsWithinGroup(const AVStream* stream) const {
    const AVIndexEntry* first = avformat_index_get_entry(format->streams[stream->index], 0);
    return first && !(first->flags & AVINDEX_KEYFRAME) &&
           std::string_view(format->iformat->name).starts_with("mov");
}

AVStream* Demuxer::picture() const {
    for (AVStream* stream : std::span(format->streams, format->nb_streams))
        if (isPicture(stream)) return stream;
    return nullptr;
}

std::vector<AVStream*> Demuxer::sounds() const {
    std::vector<AVStream*> found;
    for (AVStream* stream : std::span(format->streams, format->nb_streams))
        if (isSound(stream)) found.push_back(stream);
    return found;
}

double Demuxer::seconds(std::int64_t ticks, const AVStream* stream) const {
    return static_cast<double>(ticks) * av_q2d(stream->time_base) - zero;
}

std::int64_t Demuxer::ticks(double seconds, const AVStream* stream) const {
    // Kept far from the ends of the range, so that the libraries can add to it.
    const double max = 0x1p60;
    const double ticks = (seconds + zero) / av_q2d(stream->time_base);
    return std::isnan(ticks) ? 0 : static_cast<std::int64_t>(std::floor(std::clamp(ticks, -max, max)));
}

void Demuxer::readOnly(const AVStream* stream) {
    chosen = stream;
    for (AVStream* each : std::span(format->streams, format->nb_streams))
        each->discard = each == stream ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
}

bool Demuxer::read(AVPacket* packet) {
    allow(timeToRead);
    atStart = false;
    for (int failed = 0; failed < maxFailedReads;) {
        av_packet_unref(packet);
        lastError = av_read_frame(format.get(), packet);
        if (isAtEnd() || isTooSlow()) return false;
        if (lastError < 0)
            ++failed;
        else if (!chosen || packet->stream_index == chosen->index) {
            settle(packet);
            return true;
        }
    }
    return false;
}

void Demuxer::settle(AVPacket* packet) const {
    if (packet->stream_index != earlyTrack) return;
    for (auto* ticks : {&packet->pts, &packet->dts})
        if (*ticks != AV_NOPTS_VALUE) *ticks = av_sat_add64(*ticks, early);
}

// Matroska indexes the picture track alone as a rule, and would read on to a place in another one.
AVStream* Demuxer::guideFor(const AVStream* stream) const {
    AVStream* pictures = picture();
    const bool byPicture = pictures && std::string_view(format->iformat->name).starts_with("matroska");
    return byPicture ? pictures : format->streams[stream->index];
}

bool Demuxer::seek(const AVStream* stream, double seconds) {
    allow(timeToRead);
    atStart = false;
    const AVStream* guide = guideFor(stream);
    const std::int64_t target = ticks(seconds, guide) - (guide->index == earlyTrack ? early : 0);
    return avformat_seek_file(format.get(), guide->index, INT64_MIN, target, target, 0) >= 0;
}

bool Demuxer::rewind() {
    if (atStart) return true;
    allow(timeToRead);
    const AVStream* stream = chosen ? chosen : format->streams[0];
    const auto seekTo = [&](std::int64_t ticks) {
        return avformat_seek_file(format.get(), stream->index, INT64_MIN, ticks, ticks, 0) >= 0;
    };
    const auto toFirstByte = [&] { return av_seek_frame(format.get(), -1, 0, AVSEEK_FLAG_BYTE) >= 0; };
    // Where no keyframe lies at the start, nothing can be sought there, but what lies before all else can.
    const AVIndexEntry* first = avformat_index_get_entry(format->streams[stream->index], 0);
    const std::int64_t start = stream->start_time == AV_NOPTS_VALUE ? 0 : stream->start_time;
    // Streams of packets have no index: a search for their first time may end after it.
    const bool unindexed = format->iformat->flags & AVFMT_TS_DISCONT;
    const bool there = (unindexed && toFirstByte()) || seekTo(start) ||
                       (first && seekTo(first->timestamp - 1)) || toFirstByte();
    atStart = there;
    return there;
}

void Demuxer::allow(std::chrono::milliseconds time) {
    *deadline = Clock::now() + time;
}

}
