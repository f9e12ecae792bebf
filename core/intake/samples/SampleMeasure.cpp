#include "core/intake/samples/SampleMeasure.h"

#include "core/intake/samples/CameraPath.h"
#include "core/intake/samples/Exposure.h"
#include "core/intake/samples/Measures.h"
#include "core/intake/samples/Sharpness.h"
#include "core/model/Look.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Codec.h"
#include "platform/media/FrameReader.h"

namespace murbo::SampleMeasure {
namespace {

// Blur shows on a picture this wide (its longer side), the camera's motion on one half as wide.
constexpr double lookSide = 640;
// The camera is followed no more often than this, in seconds; hands shake slower.
constexpr double minStep = 0.05;
// How long before its middle a moment may be looked at: about half of what lies between two pictures.
constexpr double lookAhead = 0.05;

// The longest file takes some 20 megabytes; what is larger is none of ours.
constexpr std::size_t maxCacheBytes = std::size_t{64} << 20;

double middleOf(std::size_t sample) {
    return (static_cast<double>(sample) + 0.5) / perSecond;
}

int stepFor(const Frame& frame, bool interlaced) {
    const int side = std::max(frame.width, frame.height);
    // Two rows at once blend the fields, whose combs would look like edges.
    return std::max(static_cast<int>(std::lround(side / lookSide)), interlaced ? 2 : 1);
}

struct PictureMeasure {
    double time = 0;
    std::uint8_t sharpness = 0;
    std::uint8_t exposure = 0;
};

/// Takes pictures in the order of their times, and makes a sample for each stretch that is over.
class SampleTaker {
public:
    void add(const FrameReader::TimedFrame& given, int step);
    /// All samples of a file of that length in seconds, where it is known.
    Samples finish(double length);

private:
    std::size_t count() const { return samples.moves.size(); }
    bool wantsALook() const { return last >= middleOf(nextLook) - lookAhead; }
    void look(const Luma& luma);
    void settle(double upTo);
    void append(double middle);
    const PictureMeasure& lookAt(double time) const;

    Samples samples{.rate = perSecond};
    CameraFlow flow;
    CameraPath path;
    std::deque<PictureMeasure> looks;
    std::size_t nextLook = 0;
    double last = -1;
};

void SampleTaker::add(const FrameReader::TimedFrame& given, int step) {
    if (given.time > longest) throw Problem("The picture is too long to be measured.");
    if (last >= 0 && given.time < last + minStep) return;
    last = std::max(given.time, 0.0);
    // Most pictures are looked at for the camera's motion alone, which needs but a small one.
    const bool looking = looks.empty() || wantsALook();
    const Luma luma = Luma::of(given.frame, looking ? step : 2 * step);
    if (looking) look(luma);
    path.add(last, flow.to(looking ? luma.halved() : luma));
    settle(last - CameraPath::reach);
}

void SampleTaker::look(const Luma& luma) {
    looks.push_back({last, Sharpness::of(luma), Exposure::of(luma)});
    nextLook = static_cast<std::size_t>((last + lookAhead) * perSecond) + 1;
}

void SampleTaker::settle(double upTo) {
    while (middleOf(count()) <= upTo) append(middleOf(count()));
    const double next = middleOf(count());
    path.forgetBefore(next);
    while (looks.size() > 2 && looks[1].time < next - 1 / perSecond) looks.pop_front();
}

void SampleTaker::append(double middle) {
    const PictureMeasure& look = lookAt(middle);
    const auto moment = path.at(middle);
    samples.sharpness.push_back(look.sharpness);
    samples.exposure.push_back(look.exposure);
    samples.steadiness.push_back(moment.steadiness);
    samples.moves.push_back(moment.move);
}

// The one that is near, or else the one that was still on then.
const PictureMeasure& SampleTaker::lookAt(double time) const {
    auto after = std::find_if(looks.begin(), looks.end(),
                              [&](const PictureMeasure& look) { return look.time > time; });
    if (after == looks.begin()) return *after;
    const auto before = after - 1;
    const bool near = after != looks.end() && after->time - time < 0.5 / perSecond;
    return near && after->time - time < time - before->time ? *after : *before;
}

Samples SampleTaker::finish(double length) {
    if (last < 0) throw Problem("Not one picture of it could be read.");
    // Sound may go on after the picture; nothing is said of that.
    const double end = std::clamp(length, last, last + 1);
    const auto whole = std::max<std::size_t>(static_cast<std::size_t>(end * perSecond + 1e-6), 1);
    while (count() < whole) append(middleOf(count()));
    return std::move(samples);
}

bool isByte(std::int64_t value) {
    return value >= 0 && value <= 255;
}

bool isWhole(const Samples& samples) {
    const std::size_t count = samples.moves.size();
    const auto isMeasure = [&](const std::vector<std::int64_t>& measure) {
        return measure.size() == count && std::all_of(measure.begin(), measure.end(), isByte);
    };
    return samples.rate == perSecond && count > 0 && isMeasure(samples.sharpness) &&
           isMeasure(samples.exposure) && isMeasure(samples.steadiness);
}

std::optional<Samples> cached(const std::filesystem::path& file) {
    try {
        auto samples = Codec::decode<Samples>(Measures::kept(file, maxCacheBytes));
        if (isWhole(samples)) return samples;
    } catch (const Problem&) {
    }
    return std::nullopt;
}

}

Samples measure(const std::filesystem::path& file, std::stop_token stop) {
    const MediaFacts facts = MediaFile::facts(file);
    if (!facts.picture) return {.rate = perSecond};
    auto reader = FrameReader::open(file, FrameReader::Purpose::sampling);
    SampleTaker sampler;
    while (const auto given = reader.next()) {
        if (stop.stop_requested()) throw Cancelled();
        sampler.add(*given, stepFor(given->frame, facts.picture->interlaced));
    }
    return sampler.finish(facts.length);
}

Samples of(const Source& source, const std::optional<std::filesystem::path>& cache, std::stop_token stop) {
    const auto place = cache ? Measures::place(*cache, "samples", source, ".json") : std::filesystem::path();
    if (cache) {
        if (auto samples = cached(place)) return std::move(*samples);
    }
    Samples measured = measure(source.path, stop);
    if (cache) Measures::keep(place, Codec::encode(measured, JsonWriter::Layout::compact));
    return measured;
}

std::map<UUID, Samples> of(const std::vector<Source>& sources,
                           const std::optional<std::filesystem::path>& cache, std::stop_token stop) {
    // The decoder of each uses several processors already.
    const std::size_t atOnce = std::thread::hardware_concurrency() / 4;
    return Measures::ofAll<Samples>(sources, atOnce,
                                    [&](const Source& source) { return of(source, cache, stop); });
}

}
