#include "platform/media/FileEnd.h"

#include <fstream>
#include <limits>

namespace murbo::FileEnd {

namespace {

// How much of the end is read for the last packets, in turn: a little suffices nearly always, while some
// recorders write seconds of high-rate picture as one block.
constexpr std::int64_t tails[] = {1 << 20, 16 << 20, 256 << 20};
// Files that can only be read through are read through up to this size.
constexpr std::int64_t maxReadThrough = 512 << 20;
constexpr auto timeToLook = std::chrono::seconds(10);

bool isCounted(const AVStream* stream) {
    const AVMediaType type = stream->codecpar->codec_type;
    return (type == AVMEDIA_TYPE_VIDEO || type == AVMEDIA_TYPE_AUDIO) &&
           !(stream->disposition & AV_DISPOSITION_ATTACHED_PIC) &&
           avcodec_find_decoder(stream->codecpar->codec_id);
}

std::span<AVStream*> streams(const Demuxer& input) {
    return {input.context()->streams, input.context()->nb_streams};
}

bool is(const Demuxer& input, std::string_view format) {
    return std::string_view(input.context()->iformat->name).starts_with(format);
}

std::int64_t fileSize(const Demuxer& input) {
    return std::max<std::int64_t>(0, avio_size(input.context()->pb));
}

double toldByTracks(const Demuxer& input) {
    double latest = 0;
    for (const AVStream* stream : streams(input))
        if (isCounted(stream) && stream->duration != AV_NOPTS_VALUE && stream->start_time != AV_NOPTS_VALUE)
            latest = std::max(latest, input.seconds(stream->start_time + stream->duration, stream));
    return latest;
}

double told(const Demuxer& input) {
    if (const double length = toldByTracks(input); length > 0) return length;
    const std::int64_t whole = input.context()->duration;
    return whole == AV_NOPTS_VALUE ? 0 : std::max(0.0, static_cast<double>(whole) / AV_TIME_BASE);
}

// In ticks. A picture whose packet says none lasts as long as pictures do on the whole.
std::int64_t lengthOf(const AVPacket& packet, const AVStream* stream) {
    if (packet.duration > 0) return packet.duration;
    const AVRational rate = stream->avg_frame_rate;
    const bool known = stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO && rate.num > 0 && rate.den > 0;
    return known ? av_rescale_q(1, av_inv_q(rate), stream->time_base) : 0;
}

double endOf(const Demuxer& input, const AVPacket& packet) {
    const AVStream* stream = input.context()->streams[packet.stream_index];
    const std::int64_t ticks = packet.pts == AV_NOPTS_VALUE ? packet.dts : packet.pts;
    if (!isCounted(stream) || ticks == AV_NOPTS_VALUE) return 0;
    return input.seconds(ticks + lengthOf(packet, stream), stream);
}

// Of several pictures in one block only the first says when it is shown. Each is shown later than it is
// decoded by as many pictures as the decoder holds back.
double endAsDecoded(const Demuxer& input, const AVPacket& packet) {
    const AVStream* stream = input.context()->streams[packet.stream_index];
    if (!isCounted(stream) || packet.dts == AV_NOPTS_VALUE) return 0;
    return input.seconds(packet.dts + lengthOf(packet, stream) * (1 + stream->codecpar->video_delay), stream);
}

double endOfPackets(Demuxer& input) {
    const auto until = std::chrono::steady_clock::now() + timeToLook;
    const ffmpeg::Packet packet = ffmpeg::makePacket();
    double latest = 0;
    double decoded = 0;
    bool allTimed = true;
    while (std::chrono::steady_clock::now() < until && input.read(packet.get())) {
        latest = std::max(latest, endOf(input, *packet));
        decoded = std::max(decoded, endAsDecoded(input, *packet));
        allTimed = allTimed && packet->pts != AV_NOPTS_VALUE;
    }
    return allTimed ? latest : std::max(latest, decoded);
}

double lastPacketIn(const std::filesystem::path& path, std::int64_t tail) {
    Demuxer input(path);
    const std::int64_t size = fileSize(input);
    const bool whole = tail >= size;
    if (!whole && av_seek_frame(input.context(), -1, size - tail, AVSEEK_FLAG_BYTE) < 0) return 0;
    return endOfPackets(input);
}

double lastPacket(const Demuxer& input) {
    for (const std::int64_t tail : tails) {
        if (const double end = lastPacketIn(input.path(), tail); end > 0) return end;
        if (tail >= fileSize(input)) return 0;
    }
    return 0;
}

double readThrough(const Demuxer& input) {
    return fileSize(input) <= maxReadThrough ? lastPacketIn(input.path(), maxReadThrough) : 0;
}

// Whether a Matroska file's one segment reaches past the file's end: an identifier, then a size whose own
// length stands in its leading zero bits. All ones mean that no size is given.
bool isSegmentTorn(const Demuxer& input) {
    std::array<char, 4096> head{};
    std::ifstream(input.path(), std::ios::binary).read(head.data(), head.size());
    const std::size_t at = std::string_view(head.data(), head.size()).find("\x18\x53\x80\x67");
    if (at == std::string_view::npos || at + 12 > head.size()) return false;
    const auto byte = [&](std::size_t index) { return static_cast<std::uint8_t>(head[at + 4 + index]); };
    const int bytes = std::countl_zero(byte(0)) + 1;
    if (bytes > 8) return false;
    std::uint64_t size = byte(0) & ((1 << (8 - bytes)) - 1);
    for (int index = 1; index < bytes; ++index) size = size << 8 | byte(index);
    const bool unknown = size == (std::uint64_t{1} << (7 * bytes)) - 1;
    return !unknown && size > static_cast<std::uint64_t>(fileSize(input)) - at - 4 - bytes;
}

// The index of a movie that was copied only in part points past the end of the file.
double endByIndex(const Demuxer& input, AVStream* stream) {
    const std::int64_t size = fileSize(input);
    int kept = avformat_index_get_entries_count(stream);
    const auto isThere = [&](int index) {
        const AVIndexEntry* entry = avformat_index_get_entry(stream, index);
        return entry->pos + entry->size <= size;
    };
    if (kept == 0 || isThere(kept - 1)) return std::numeric_limits<double>::infinity();
    while (kept > 0 && !isThere(kept - 1)) --kept;
    return kept == 0 ? 0 : input.seconds(avformat_index_get_entry(stream, kept - 1)->timestamp, stream);
}

// Whether what the header says may be where the last picture begins. So it is in program streams, and in
// Matroska by other writers than the two that nearly all of it comes from. Where no track of a Matroska file
// begins at 0, one of the two counts from there all the same.
bool mayBeOff(const Demuxer& input) {
    if (is(input, "mpeg")) return !is(input, "mpegts");
    if (!is(input, "matroska")) return false;
    if (input.seconds(0, input.context()->streams[0]) < 0) return true;
    const AVDictionaryEntry* writer = av_dict_get(input.context()->metadata, "encoder", nullptr, 0);
    const std::string_view name = writer ? writer->value : "";
    return !name.starts_with("Lavf") && !name.starts_with("libebml");
}

double cutToWhatIsThere(const Demuxer& input, double length) {
    double there = 0;
    for (AVStream* stream : streams(input))
        if (isCounted(stream)) there = std::max(there, endByIndex(input, stream));
    return std::min(length, there);
}

}

double length(const Demuxer& input) {
    const bool guessed = input.context()->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE;
    const double header = guessed ? 0 : told(input);
    const bool torn = is(input, "matroska") && isSegmentTorn(input);
    if (header > 0 && !torn && !mayBeOff(input))
        return is(input, "mov") ? cutToWhatIsThere(input, header) : header;
    const bool timed = is(input, "matroska") || is(input, "mpeg") || is(input, "flv") || is(input, "asf");
    const double found = timed ? lastPacket(input) : readThrough(input);
    return found > 0 ? found : told(input);
}

}
