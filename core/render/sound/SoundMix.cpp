#include "core/render/sound/SoundMix.h"

#include "core/model/Project.h"
#include "core/model/ShownMoments.h"
#include "core/model/Times.h"
#include "core/render/plan/PlaybookClock.h"
#include "core/render/plan/StageValue.h"
#include "platform/base/Problem.h"
#include "platform/media/SoundReader.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace murbo::SoundMix {

namespace {

constexpr double musicVolume = 0.35; // of a cue that gives none
constexpr double soundVolume = 0.7;
constexpr double layerVolume = 1;
constexpr double ringsOut = 4; // seconds; a longer sound ends with its overlay
constexpr double minTied = 0.1;
constexpr std::size_t maxLayers = 1000; // each is a file to be opened
constexpr int maxSteps = 20'000;        // names looked up and parameters filled in, to find those
constexpr double minSpan = 0.05;        // seconds; a shorter sound is left out
constexpr double muteFade =
    0.08; // seconds in which the footage fades out before a muted stretch and in after
constexpr double curveStep = 0.1;    // seconds from one point of the music's curve to the next
constexpr double speechPause = 0.5;  // seconds; a shorter pause in speech does not lift the music
constexpr double duckFade = 0.25;    // seconds in which music gives way
constexpr double loudest = 16;       // a bound for factors out of files
constexpr double longestVideo = 1e6; // seconds; no movie comes near

double bounded(double factor) {
    return factor > 0 ? std::min(factor, loudest) : 0;
}

double level(const Video& video, Lane lane) {
    return video.look && video.look->mix ? bounded(video.look->mix->level(lane)) : 1;
}

double length(const Video& video) {
    const double length = video.length();
    return length > 0 ? std::min(length, longestVideo) : 0;
}

/// Adds a ramp; one that goes on as flat as the last makes that longer instead.
void add(Curve& curve, Ramp ramp) {
    const bool flat = ramp.from == ramp.to;
    if (flat && !curve.empty() && curve.back().from == ramp.from && curve.back().to == ramp.to)
        curve.back().end = ramp.end;
    else
        curve.push_back(ramp);
}

bool isStretch(double start, double end) {
    return end - start > Times::noStretch;
}

/// The stretches in which the footage's own sound is taken away.
std::vector<Stretch> quiet(const Video& video, const Plan& plan) {
    std::vector<Stretch> quiet;
    double start = 0;
    for (const Cut& cut : video.cuts) {
        if (cut.muted.value_or(false)) quiet.push_back({start, start + cut.length()});
        start += cut.length();
    }
    for (const PlacedOverlay& placed : plan.overlays)
        if (placed.overlay.mute.value_or(false)) quiet.push_back({placed.start, placed.end});
    return silences(std::move(quiet), 2 * muteFade);
}

Curve footageCurve(double level, const std::vector<Stretch>& quiet, double total) {
    Curve curve;
    double cursor = 0;
    for (const Stretch& range : quiet) {
        const double fade = std::max(cursor, range.from - muteFade);
        if (isStretch(cursor, fade)) curve.push_back({cursor, fade, level, level});
        if (isStretch(fade, range.from)) curve.push_back({fade, range.from, level, 0});
        const double silent = std::max(fade, range.from);
        if (isStretch(silent, range.to)) curve.push_back({silent, range.to, 0, 0});
        cursor = range.to + muteFade;
        curve.push_back({range.to, cursor, 0, level});
    }
    if (isStretch(cursor, total)) curve.push_back({cursor, total, level, level});
    return curve;
}

/// Whether a cut goes on in its file where the piece ends, on the clock and in the file. It is held against
/// where the piece began, so that many small jumps don't add up.
bool continues(const Piece& piece, const Cut& cut, double start) {
    const double at = piece.from + (start - piece.start);
    return piece.end == start && std::abs(at - Times::onTick(cut.start)) <= Times::samePlace;
}

void addPiece(Track& track, const Cut& cut, double start) {
    const double end = start + cut.length();
    if (!(start >= 0 && start < end && end <= longestVideo && std::abs(cut.start) <= longestVideo)) return;
    if (!track.pieces.empty() && continues(track.pieces.back(), cut, start))
        track.pieces.back().end = end;
    else
        track.pieces.push_back({start, end, Times::onTick(cut.start)});
}

/// One track for each source, in the order in which they come.
std::vector<Track> footage(const Video& video, const Plan& plan, const std::set<UUID>& missing) {
    std::vector<Track> tracks;
    std::map<UUID, std::size_t> places;
    double start = 0;
    for (const Cut& cut : video.cuts) {
        const auto source = plan.sources.find(cut.source);
        if (source != plan.sources.end() && !missing.contains(cut.source) && !cut.muted.value_or(false)) {
            const auto [place, isNew] = places.try_emplace(cut.source, tracks.size());
            if (isNew) tracks.push_back({source->second, {}, {}});
            addPiece(tracks[place->second], cut, start);
        }
        start += cut.length();
    }
    std::erase_if(tracks, [](const Track& track) { return track.pieces.empty(); });
    return tracks;
}

/// The stretches under which music gives way, and how far off they are.
class Speech {
public:
    explicit Speech(const std::vector<CaptionCue>& cues) {
        std::vector<Stretch> spoken;
        for (const CaptionCue& cue : cues) {
            if (!spoken.empty() && cue.start - spoken.back().to < speechPause)
                spoken.back().to = std::max(spoken.back().to, cue.end);
            else
                spoken.push_back({cue.start, cue.end});
        }
        ranges = silences(std::move(spoken), 0);
    }

    /// Seconds from a moment to the nearest speech; 0 within.
    double distance(double time) const {
        const auto next =
            std::ranges::partition_point(ranges, [&](const Stretch& each) { return each.to < time; });
        double distance = HUGE_VAL;
        if (next != ranges.end()) distance = std::max(next->from - time, 0.0);
        if (next != ranges.begin()) distance = std::min(distance, time - std::prev(next)->to);
        return distance;
    }

private:
    std::vector<Stretch> ranges;
};

Curve musicCurve(const Piece& piece, double gain, std::optional<double> duck, const Speech& speech) {
    const double span = piece.end - piece.start;
    const double fadeIn = std::min(span / 4, 0.3);
    const double fadeOut = std::min(span / 3, 1.5);
    const auto volume = [&](double time) {
        const double fade = std::min((time - piece.start) / fadeIn, (piece.end - time) / fadeOut);
        const double distance = duck ? speech.distance(time) : HUGE_VAL;
        const double under = distance < duckFade ? *duck + (1 - *duck) * distance / duckFade : 1;
        return gain * std::clamp(fade, 0.0, 1.0) * under;
    };
    // The knees of the fades too, or a short song would be missed between two points.
    const double knees[] = {piece.start + fadeIn, piece.end - fadeOut, piece.end};
    Curve curve;
    for (double time = piece.start; time < piece.end - 0.0001;) {
        double next = time + curveStep;
        for (const double knee : knees)
            if (time < knee) next = std::min(next, knee);
        add(curve, {time, next, volume(time), volume(next)});
        time = next;
    }
    return curve;
}

/// `span` seconds of a file, `skip` being what is left out at its start; nothing where that is too little.
std::optional<Piece> pieceOf(double start, double span, double skip) {
    if (!(start >= 0) || !(span > minSpan) || !(std::abs(skip) <= longestVideo)) return {};
    return Piece{start, start + span, skip};
}

/// A video's clock: where it shows what, and how long it runs.
struct Clock {
    explicit Clock(const Video& video) : moments(video.cuts), total(length(video)) {}

    const ShownMoments moments;
    const double total;
};

/// Where a cue sounds; nothing where its moment is not shown, or too little of it is left.
std::optional<Piece> placed(const SoundCue& cue, const Clock& clock, double fileLength) {
    const auto start = clock.moments.on(cue.source, cue.at);
    if (!start) return {};
    const double skip = cue.skip.value_or(0);
    double span = std::min(fileLength - skip, clock.total - *start);
    if (cue.length) span = std::min(span, *cue.length);
    return pieceOf(*start, span, skip);
}

/// A layer of an overlay that sounds.
struct SoundLayer {
    const PlacedOverlay& placed;
    const Playbook::Layer& layer;
    std::filesystem::path file;

    double begin() const { return placed.start + Stage::layerStart(placed, layer); }
};

std::vector<const Playbook::Layer*> soundingLayers(const Book& book) {
    std::vector<const Playbook::Layer*> found;
    for (const Playbook::Layer& layer : book.playbook.layers)
        if (layer.sound) found.push_back(&layer);
    return found;
}

std::vector<SoundLayer> soundLayers(const Plan& plan) {
    std::map<const Book*, std::vector<const Playbook::Layer*>> sounding;
    std::vector<SoundLayer> found;
    int steps = 0;
    for (const PlacedOverlay& placed : plan.overlays) {
        const auto [layers, isNew] = sounding.try_emplace(&*placed.book);
        if (isNew) layers->second = soundingLayers(*placed.book);
        for (const auto* layer : layers->second) {
            steps += 1 + static_cast<int>(std::ranges::count(*layer->sound, '$'));
            if (found.size() == maxLayers || steps > maxSteps) return found;
            const auto name = Stage::value(layer->sound, *placed.values);
            auto file = name ? plan.file(*name, &*placed.book) : std::nullopt;
            if (file) found.push_back({placed, *layer, std::move(*file)});
        }
    }
    return found;
}

/// Where a layer sounds: a short sound rings out after its overlay, a long one ends with it.
std::optional<Piece> placed(const SoundLayer& layer, const Clock& clock, double fileLength) {
    const double begin = layer.begin();
    const double skip = layer.layer.start.value_or(0);
    const double left = fileLength - skip;
    double span = std::min(clock.total - begin, left);
    if (left > ringsOut) span = std::min(span, std::max(layer.placed.end - begin, minTied));
    return pieceOf(begin, span, skip);
}

Curve flat(const Piece& piece, double gain) {
    return {{piece.start, piece.end, gain, gain}};
}

}

double gain(const Curve& curve, double time) {
    if (curve.empty()) return 1;
    const auto after =
        std::ranges::partition_point(curve, [&](const Ramp& ramp) { return ramp.start <= time; });
    return after == curve.begin() ? curve.front().from : std::prev(after)->at(time);
}

std::optional<double> lengthOf(const std::filesystem::path& file) {
    try {
        return SoundReader::open(file).length();
    } catch (const Problem&) {
        return {};
    }
}

std::vector<Track> tracks(const Video& video, const Plan& plan, const std::set<UUID>& missing,
                          const Lengths& lengths) {
    std::vector<Track> tracks;
    const std::vector<Stretch> silent = quiet(video, plan);
    const double footageLevel = level(video, Lane::video);
    if (footageLevel > 0) tracks = footage(video, plan, missing);
    if (footageLevel != 1 || !silent.empty())
        for (Track& track : tracks) track.gains = footageCurve(footageLevel, silent, length(video));

    const Clock clock(video);
    std::map<std::filesystem::path, std::optional<double>> known;
    const auto add = [&](const auto& sound, const auto& path, double gain, const auto& curve) {
        if (!path || !(gain > 0)) return;
        const auto [length, isNew] = known.try_emplace(*path);
        if (isNew) length->second = lengths(*path);
        if (!length->second) return;
        if (const auto piece = placed(sound, clock, *length->second))
            tracks.push_back({*path, {*piece}, curve(*piece, gain)});
    };

    const Look look = video.look.value_or(Look{});
    const Speech speech(plan.cues);
    std::optional<double> duck;
    if (look.mix && look.mix->duck) duck = bounded(*look.mix->duck);
    for (const SoundCue& cue : look.music)
        add(cue, plan.file(cue.file), bounded(cue.volume.value_or(musicVolume)) * level(video, Lane::music),
            [&](const Piece& piece, double gain) { return musicCurve(piece, gain, duck, speech); });
    for (const SoundCue& cue : look.sounds)
        add(cue, plan.file(cue.file), bounded(cue.volume.value_or(soundVolume)) * level(video, Lane::sounds),
            flat);
    for (const SoundLayer& layer : soundLayers(plan))
        add(layer, std::optional(layer.file),
            bounded(layer.layer.volume.value_or(layerVolume)) * level(video, Lane::overlays), flat);
    return tracks;
}

bool isRecorded(const Video& video, const Plan& plan, const std::set<UUID>& missing, const Lengths& lengths) {
    std::set<UUID> seen = missing;
    return std::ranges::any_of(video.cuts, [&](const Cut& cut) {
        const auto source = plan.sources.find(cut.source);
        return source != plan.sources.end() && seen.insert(cut.source).second && lengths(source->second);
    });
}

std::vector<std::filesystem::path> files(const Video& video, const Plan& plan) {
    std::vector<std::filesystem::path> files;
    const Look look = video.look.value_or(Look{});
    for (const List<SoundCue>& cues : {look.music, look.sounds})
        for (const SoundCue& cue : cues)
            if (auto path = plan.file(cue.file)) files.push_back(std::move(*path));
    for (SoundLayer& layer : soundLayers(plan)) files.push_back(std::move(layer.file));
    return files;
}

std::vector<Stretch> silences(std::vector<Stretch> ranges, double gap) {
    std::erase_if(ranges,
                  [](const Stretch& range) { return std::isnan(range.from) || std::isnan(range.to); });
    std::ranges::stable_sort(ranges, {}, &Stretch::from);
    std::vector<Stretch> kept;
    for (const Stretch& range : ranges) {
        if (!kept.empty() && range.from <= kept.back().to + gap)
            kept.back().to = std::max(kept.back().to, range.to);
        else
            kept.push_back(range);
    }
    return kept;
}

}
