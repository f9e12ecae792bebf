#include "core/render/sound/SoundMixer.h"

#include "platform/base/Problem.h"
#include "platform/media/SoundReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace murbo {

namespace {

constexpr std::int64_t fadeFrames = 240;            // 5 ms: too short to be heard as a fade
constexpr std::int64_t keptOpen = 10 * Sound::rate; // frames ahead of which a file is not closed
constexpr std::int64_t blockFrames = 1024;
constexpr double longest = 1e9; // seconds

/// Each time is rounded by itself, so that nothing adds up along a video.
std::int64_t frameAt(double seconds) {
    return std::llround(std::clamp(seconds, -longest, longest) * Sound::rate);
}

/// A piece in frames.
struct TrackSpan {
    std::int64_t start = 0;
    std::int64_t end = 0;
    std::int64_t from = 0; // in the file, at `start`

    std::int64_t fileFrame(std::int64_t frame) const { return from + (frame - start); }
};

std::vector<TrackSpan> spans(const std::vector<SoundMix::Piece>& pieces) {
    std::vector<TrackSpan> spans;
    for (const SoundMix::Piece& piece : pieces)
        spans.push_back({frameAt(piece.start), frameAt(piece.end), frameAt(piece.from)});
    return spans;
}

/// A curve read from left to right.
class Gains {
public:
    Gains(const SoundMix::Curve& given, std::int64_t from) : curve(given) {
        const double time = static_cast<double>(from) / Sound::rate;
        next = std::ranges::partition_point(curve, [&](const auto& ramp) { return ramp.start <= time; }) -
               curve.begin();
    }

    double at(std::int64_t frame) {
        if (curve.empty()) return 1;
        const double time = static_cast<double>(frame) / Sound::rate;
        while (next < curve.size() && curve[next].start <= time) ++next;
        return next == 0 ? curve.front().from : curve[next - 1].at(time);
    }

private:
    const SoundMix::Curve& curve;
    std::size_t next = 0; // the first ramp that has not begun
};

/// 0 to 1 over the fade, `frame` counted from the edge.
double edge(std::int64_t frame) {
    return std::min(1.0, (static_cast<double>(frame) + 0.5) / fadeFrames);
}

/// What a broken file may hold must not spoil the rest.
float sane(float sample) {
    return std::isfinite(sample) ? sample : 0;
}

}

/// One track at work.
struct SoundMixer::TrackPlayer {
    SoundMix::Track track;
    std::vector<TrackSpan> spans;
    std::optional<SoundReader> reader;
    std::int64_t fileEnd = 0; // frames
    bool broken = false;

    explicit TrackPlayer(SoundMix::Track given)
        : track(std::move(given)), spans(murbo::spans(track.pieces)) {}

    /// The spans that sound between two frames.
    std::span<const TrackSpan> between(std::int64_t from, std::int64_t until) const {
        const auto first =
            std::ranges::partition_point(spans, [&](const TrackSpan& span) { return span.end <= from; });
        const auto last = std::partition_point(first, spans.end(),
                                               [&](const TrackSpan& span) { return span.start < until; });
        return {first, last};
    }

    bool open() {
        if (reader || broken) return !broken;
        try {
            reader = SoundReader::open(track.file);
            fileEnd = frameAt(reader->length());
        } catch (const Problem&) {
            broken = true;
        }
        return !broken;
    }

    /// Adds what a span holds from a frame on; `into` ends within the span.
    void add(const TrackSpan& span, std::int64_t from, std::span<float> into) {
        const bool fadesIn = span.from > 0;
        const bool fadesOut = span.fileFrame(span.end) < fileEnd;
        Gains gains(track.gains, from);
        std::array<float, 2 * blockFrames> sound;
        reader->read(span.fileFrame(from), std::span(sound).first(into.size()));
        for (std::size_t at = 0; at < into.size(); at += 2) {
            const std::int64_t frame = from + static_cast<std::int64_t>(at / 2);
            double gain = gains.at(frame);
            if (fadesIn) gain *= edge(frame - span.start);
            if (fadesOut) gain *= edge(span.end - 1 - frame);
            into[at] += sane(static_cast<float>(sound[at] * gain));
            into[at + 1] += sane(static_cast<float>(sound[at + 1] * gain));
        }
    }
};

SoundMixer::SoundMixer(std::vector<SoundMix::Track> tracks, double length)
    : total(frameAt(std::max(0.0, length))) {
    for (SoundMix::Track& track : tracks) players.emplace_back(std::move(track));
}

SoundMixer::SoundMixer(SoundMixer&&) noexcept = default;
SoundMixer& SoundMixer::operator=(SoundMixer&&) noexcept = default;
SoundMixer::~SoundMixer() = default;

void SoundMixer::read(std::int64_t from, std::span<float> into) {
    if (from != fed - Limiter::latency) seek(from);
    for (into = into.first(into.size() / 2 * 2); !into.empty();) into = into.subspan(feed(into));
    closePassed();
}

/// Takes up at `from`, with the limiter as it would be had all been read up to there.
void SoundMixer::seek(std::int64_t from) {
    limiter.reset();
    fed = std::min(from, std::max<std::int64_t>(from - Limiter::memory, 0));
    std::array<float, 2 * blockFrames> unheard;
    while (fed < from + Limiter::latency)
        feed(std::span(unheard).first(2 * std::min(from + Limiter::latency - fed, blockFrames)));
}

/// Mixes the next block, as much of `into` as that is, and answers how many samples.
std::size_t SoundMixer::feed(std::span<float> into) {
    const auto block = into.first(std::min<std::size_t>(into.size(), 2 * blockFrames));
    std::ranges::fill(block, 0.0F);
    for (TrackPlayer& player : players) mix(player, block);
    limiter.process(block);
    fed += static_cast<std::int64_t>(block.size() / 2);
    return block.size();
}

void SoundMixer::mix(TrackPlayer& player, std::span<float> block) {
    const std::int64_t end = std::min(fed + static_cast<std::int64_t>(block.size() / 2), total);
    if (end <= fed) return; // silence, also where a piece would go on
    for (const TrackSpan& span : player.between(fed, end)) {
        if (!player.open()) return;
        const std::int64_t first = std::max(span.start, fed);
        const std::int64_t last = std::min(span.end, end);
        player.add(span, first, block.subspan(2 * (first - fed), 2 * (last - first)));
    }
}

void SoundMixer::closePassed() {
    for (TrackPlayer& player : players)
        if (player.between(fed - Limiter::latency, fed + keptOpen).empty()) player.reader.reset();
}

void SoundMixer::prepare(std::int64_t from, std::int64_t until) {
    for (TrackPlayer& player : players) {
        const auto spans = player.between(from, until);
        if (spans.empty() || player.reader || !player.open()) continue;
        // What is read next goes on from here.
        std::array<float, 2> before;
        player.reader->read(spans.front().fileFrame(std::max(from, spans.front().start)) - 1, before);
    }
}

}
