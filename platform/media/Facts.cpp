#include "platform/media/Facts.h"

#include "platform/base/Problem.h"
#include "platform/media/FileEnd.h"
#include "platform/media/FrameView.h"

namespace murbo::Facts {

namespace {

// Above this a "rate" is the clock that timestamps are counted in, not pictures a second.
constexpr double highestRate = 240;
// Pictures may be left out of a recording, but not nearly all.
constexpr double maxLeftOut = 8;
// Above the mean by this, a header's rate is that of a clock or of a recording with gaps: the spacing
// decides.
constexpr double wellAboveMean = 1.3;
// Spacings that are looked at to find the rate of an uneven recording.
constexpr int maxSpacings = 4000;
constexpr double unevenFrom = 0.03;

constexpr double standardRates[] = {
    24000 / 1001.0,  24,  25, 30000 / 1001.0, 30, 48, 50, 60000 / 1001.0, 60, 90, 100,
    120000 / 1001.0, 120, 240};

double ratio(AVRational value) {
    return value.num > 0 && value.den > 0 ? av_q2d(value) : 0;
}

bool isInterlaced(const AVStream* stream) {
    return stream->codecpar->field_order > AV_FIELD_PROGRESSIVE;
}

double nearestStandard(double rate) {
    const auto off = [&](double standard) { return std::abs(rate - standard) / standard; };
    const double nearest = *std::ranges::min_element(standardRates, {}, off);
    return off(nearest) < 0.02 ? nearest : rate;
}

// The rate that an uneven recording was made at: that of its closer pictures, since the wide gaps are where
// some were left out. Found by the index; 0 without one.
double rateBySpacing(AVStream* stream) {
    const int entries = std::min(avformat_index_get_entries_count(stream), maxSpacings);
    std::vector<std::int64_t> spacings;
    for (int index = 1; index < entries; ++index) {
        const std::int64_t before = avformat_index_get_entry(stream, index - 1)->timestamp;
        const std::int64_t spacing = avformat_index_get_entry(stream, index)->timestamp - before;
        if (spacing > 0) spacings.push_back(spacing);
    }
    if (spacings.size() < 8) return 0;
    const auto close = spacings.begin() + static_cast<std::ptrdiff_t>(spacings.size() / 10);
    std::nth_element(spacings.begin(), close, spacings.end());
    const double rate = 1 / (static_cast<double>(*close) * av_q2d(stream->time_base));
    return rate <= highestRate * 1.01 ? nearestStandard(rate) : 0;
}

double nominalRate(AVStream* stream) {
    const double mean = ratio(stream->avg_frame_rate);
    const double told = ratio(stream->r_frame_rate);
    // Of interlaced recordings the header may give the rate of fields.
    if (isInterlaced(stream) && mean > 0 && std::abs(told - 2 * mean) < 0.1 * mean)
        return nearestStandard(mean);
    const bool sensible = told > 0 && told <= highestRate * 1.01 && (mean <= 0 || told <= maxLeftOut * mean);
    if (sensible && (mean <= 0 || told <= wellAboveMean * mean)) return told;
    const double spaced = rateBySpacing(stream);
    if (spaced > 0) return spaced;
    if (sensible) return told;
    return mean <= highestRate * 1.01 ? mean : 0;
}

// A rate out of a container's whole numbers stands for the standard one that it comes within a hair of.
double exactRate(double rate) {
    const auto near = [&](double standard) { return std::abs(rate - standard) < 1e-5 * standard; };
    const auto* exact = std::ranges::find_if(standardRates, near);
    return exact == std::end(standardRates) ? rate : *exact;
}

PictureGrid grid(const Demuxer& input, const AVStream* stream, const MediaFacts::Picture& told) {
    if (told.variableRate || told.nominalRate <= 0 || stream->start_time == AV_NOPTS_VALUE) return {};
    return {input.seconds(stream->start_time, stream), 1 / exactRate(told.nominalRate)};
}

MediaFacts::Picture picture(const Demuxer& input, AVStream* stream) {
    const PictureTraits traits = FrameView::traits(input.context(), stream);
    Frame shape;
    shape.width = stream->codecpar->width;
    shape.height = stream->codecpar->height;
    shape.turn = traits.quarterTurns;
    shape.pixelAspect = traits.pixelAspect;
    MediaFacts::Picture told;
    told.size = shape.uprightSize();
    told.nominalRate = nominalRate(stream);
    // Trimmed files still count pictures that they no longer show.
    const double mean = ratio(stream->avg_frame_rate);
    told.meanRate =
        mean > 0 ? std::min(mean, told.nominalRate > 0 ? told.nominalRate : mean) : told.nominalRate;
    told.variableRate = told.nominalRate - told.meanRate > unevenFrom * told.nominalRate;
    told.interlaced = isInterlaced(stream);
    told.highDynamicRange = FrameView::isHighDynamicRange(stream->codecpar->color_trc);
    told.quarterTurns = traits.quarterTurns;
    told.grid = grid(input, stream, told);
    return told;
}

MediaFacts::Sound sound(const std::vector<AVStream*>& streams) {
    const AVCodecParameters& first = *streams.front()->codecpar;
    return {static_cast<int>(streams.size()), first.sample_rate, first.ch_layout.nb_channels};
}

}

MediaFacts of(const Demuxer& input) {
    MediaFacts facts;
    if (AVStream* stream = input.picture()) facts.picture = picture(input, stream);
    if (const auto sounds = input.sounds(); !sounds.empty()) facts.sound = sound(sounds);
    if (!facts.picture && !facts.sound)
        throw Problem("“" + input.path().filename().string() +
                      "” holds neither picture nor sound that can be read.");
    facts.length = FileEnd::length(input);
    return facts;
}

}
