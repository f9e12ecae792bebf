#include "platform/media/VorbisTimes.h"

extern "C" {
#include <libavcodec/vorbis_parser.h>
}

namespace murbo::VorbisTimes {

namespace {

constexpr int maxPackets = 2000;
// This many changes of length are listened to.
constexpr int enoughVotes = 9;
// Times are rounded to a millisecond; a smaller change of length says nothing.
constexpr double minChange = 0.004;

struct FreeParser {
    void operator()(AVVorbisParseContext* parser) const { av_vorbis_parse_free(&parser); }
};
using Parser = std::unique_ptr<AVVorbisParseContext, FreeParser>;

}

// From one time to the next lasts the earlier packet where they are beginnings, the later one where they are
// ends.
bool areEnds(Demuxer& input, const AVStream* stream) {
    const AVCodecParameters& codec = *stream->codecpar;
    const bool rounded = std::string_view(input.context()->iformat->name).starts_with("matroska");
    if (codec.codec_id != AV_CODEC_ID_VORBIS || !rounded) return false;
    const Parser parser(av_vorbis_parse_init(codec.extradata, codec.extradata_size));
    if (!parser) return false;
    const ffmpeg::Packet packet = ffmpeg::makePacket();
    double lastTime = NAN;
    double lastLength = NAN;
    int ends = 0;
    int beginnings = 0;
    for (int count = 0; count < maxPackets && ends + beginnings < enoughVotes; ++count) {
        if (!input.read(packet.get())) break;
        const int samples = av_vorbis_parse_frame(parser.get(), packet->data, packet->size);
        const bool known = samples > 0 && packet->pts != AV_NOPTS_VALUE;
        const double length = known ? static_cast<double>(samples) / codec.sample_rate : NAN;
        const double time = known ? input.seconds(packet->pts, stream) : NAN;
        const double step = time - lastTime;
        if (std::abs(length - lastLength) > minChange)
            ++(std::abs(step - length) < std::abs(step - lastLength) ? ends : beginnings);
        lastTime = time;
        lastLength = length;
    }
    return ends > beginnings;
}

}
