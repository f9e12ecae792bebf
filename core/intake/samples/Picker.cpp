#include "core/intake/samples/Picker.h"

namespace murbo {

std::size_t Samples::count() const {
    return std::min({sharpness.size(), exposure.size(), steadiness.size(), moves.size()});
}

PickRules PickRules::vlog() {
    return {.steadiness = 1.5, .voice = Behaviour::include};
}

PickRules PickRules::action() {
    return {.steadiness = 0.4, .least = 0.5, .shortest = 1.5, .longest = 6, .loud = Behaviour::include};
}

PickRules PickRules::scenery() {
    using Move = Samples::Move;
    return {.sharpness = 1.5,
            .exposure = 1.5,
            .least = 0.7,
            .shortest = 3,
            .longest = 8,
            .moves = std::set{Move::still, Move::pan, Move::tilt},
            .voice = Behaviour::ignore,
            .loud = Behaviour::ignore};
}

namespace Picker {
namespace {

using Scores = std::vector<std::optional<double>>;
using Behaviour = PickRules::Behaviour;

constexpr double preference = 0.15;

/// A run of moments, from the first to one after the last.
struct Run {
    std::size_t from = 0;
    std::size_t to = 0;
    std::size_t length() const { return to - from; }
};

std::optional<double> behaved(std::optional<double> score, Behaviour behaviour) {
    if (!score) return score;
    switch (behaviour) {
        case Behaviour::include:
            return 1;
        case Behaviour::prefer:
            return *score + preference;
        case Behaviour::ignore:
            return score;
        case Behaviour::avoid:
            return *score - preference;
        case Behaviour::exclude:
            return std::nullopt;
    }
    return score;
}

double base(const Samples& samples, std::size_t at, const PickRules& rules) {
    const double weights = rules.sharpness + rules.exposure + rules.steadiness;
    if (!(weights > 0)) return 0;
    const double sum = rules.sharpness * static_cast<double>(samples.sharpness[at]) +
                       rules.exposure * static_cast<double>(samples.exposure[at]) +
                       rules.steadiness * static_cast<double>(samples.steadiness[at]);
    return sum / weights / 255;
}

double middleOf(const Samples& samples, std::size_t at) {
    return (static_cast<double>(at) + 0.5) / samples.rate;
}

/// Seconds as whole moments; none for a rate or a length that is no number.
std::size_t moments(double seconds, double rate) {
    const double whole = std::floor(seconds * rate);
    constexpr double most = 1e12;
    return whole > 0 ? static_cast<std::size_t>(std::min(whole, most)) : 0;
}

std::vector<Run> runs(const Scores& scores, const PickRules& rules, double rate) {
    const std::size_t bridge = moments(rules.bridge, rate);
    std::vector<Run> runs;
    for (std::size_t at = 0; at < scores.size(); ++at) {
        if (!scores[at] || *scores[at] < rules.least) continue;
        if (!runs.empty() && at - runs.back().to <= bridge)
            runs.back().to = at + 1;
        else
            runs.push_back({at, at + 1});
    }
    const std::size_t shortest = moments(rules.shortest, rate);
    std::erase_if(runs, [&](const Run& run) { return run.length() < shortest; });
    return runs;
}

double sum(const Scores& scores, const Run& run) {
    double sum = 0;
    for (std::size_t at = run.from; at < run.to; ++at) sum += scores[at].value_or(0);
    return sum;
}

/// The earliest of the windows with the highest sum of scores.
Run bestWindow(std::size_t size, const Run& in, const Scores& scores) {
    Run window{in.from, in.from + size};
    double here = sum(scores, window);
    double best = here;
    Run answer = window;
    while (window.to < in.to) {
        here += scores[window.to++].value_or(0) - scores[window.from++].value_or(0);
        if (here > best + 1e-9) {
            best = here;
            answer = window;
        }
    }
    return answer;
}

Samples::Move mostCommon(const Samples& samples, const Run& run) {
    std::array<std::size_t, rawTexts(Samples::Move{}).size()> counts{};
    for (std::size_t at = run.from; at < run.to; ++at) ++counts[static_cast<std::size_t>(samples.moves[at])];
    return static_cast<Samples::Move>(std::max_element(counts.begin(), counts.end()) - counts.begin());
}

struct Ears {
    const Samples& samples;
    const Heard& heard;
    int usual = heard.usual();

    bool voiced(std::size_t at) const { return heard.isVoiced(middleOf(samples, at)); }
    bool loud(std::size_t at) const { return heard.isLoud(middleOf(samples, at), usual); }
};

Pick pick(const UUID& source, const Run& run, const Samples& samples, const Scores& scores,
          const Ears& ears) {
    Pick pick{.source = source,
              .start = static_cast<double>(run.from) / samples.rate,
              .end = static_cast<double>(run.to) / samples.rate,
              .score = sum(scores, run) / static_cast<double>(run.length()),
              .move = mostCommon(samples, run)};
    for (std::size_t at = run.from; at < run.to; ++at) {
        pick.voiced = pick.voiced || ears.voiced(at);
        pick.loud = pick.loud || ears.loud(at);
    }
    return pick;
}

/// A source on the line that all of them make end to end.
struct PlacedSource {
    UUID source;
    double offset = 0;
    double seconds = 0;
};

std::vector<PlacedSource> laid(const std::vector<Length>& sources) {
    std::vector<PlacedSource> line;
    double offset = 0;
    for (const auto& source : sources) {
        const double seconds = std::isfinite(source.seconds) ? std::max(source.seconds, 0.0) : 0;
        line.push_back({source.source, offset, seconds});
        offset += seconds;
    }
    return line;
}

double uniform(std::mt19937_64& generator, double below) {
    // Not std::uniform_real_distribution: its numbers differ between standard libraries.
    return static_cast<double>(generator() >> 11) * 0x1p-53 * below;
}

std::optional<Pick> anywhere(const std::vector<PlacedSource>& line, const Stretch& slot, double length,
                             std::mt19937_64& generator) {
    struct Room {
        UUID source;
        double from = 0;
        double size = 0;
    };
    std::vector<Room> rooms;
    double total = 0;
    for (const auto& source : line) {
        const double from = std::max(slot.from - source.offset, 0.0);
        const double to = std::min(slot.to - source.offset, source.seconds - length);
        if (!(to > from)) continue;
        rooms.push_back({source.source, from, to - from});
        total += to - from;
    }
    if (rooms.empty()) return std::nullopt;
    double chosen = uniform(generator, total);
    auto room = rooms.begin();
    while (chosen >= room->size && room + 1 != rooms.end()) chosen -= room++->size;
    const double start = room->from + uniform(generator, room->size);
    return Pick{.source = room->source, .start = start, .end = start + length};
}

}

Scores scores(const Samples& samples, const Heard& heard, const PickRules& rules) {
    const Ears ears{samples, heard};
    Scores scores(samples.count());
    for (std::size_t at = 0; at < scores.size(); ++at) {
        if (rules.moves && !rules.moves->contains(samples.moves[at])) continue;
        auto score = std::optional(base(samples, at, rules));
        if (ears.voiced(at)) score = behaved(score, rules.voice);
        if (ears.loud(at)) score = behaved(score, rules.loud);
        if (score) scores[at] = std::clamp(*score, 0.0, 1.0);
    }
    return scores;
}

std::vector<Pick> picks(const UUID& source, const Samples& samples, const Heard& heard,
                        const PickRules& rules) {
    if (!(samples.rate > 0)) return {};
    const Scores each = scores(samples, heard, rules);
    const Ears ears{samples, heard};
    const std::size_t most = std::max<std::size_t>(moments(rules.longest, samples.rate), 1);
    std::vector<Pick> picks;
    for (const auto& run : runs(each, rules, samples.rate)) {
        const Run kept = run.length() > most ? bestWindow(most, run, each) : run;
        picks.push_back(pick(source, kept, samples, each, ears));
    }
    return picks;
}

std::vector<Pick> spread(const std::vector<Length>& sources, double every, double length,
                         const std::vector<Pick>& picks, std::mt19937_64& generator) {
    const auto line = laid(sources);
    const double total = line.empty() ? 0 : line.back().offset + line.back().seconds;
    if (!(every > 0) || !(length > 0) || !(total > 0) || total / every > static_cast<double>(maxSlots))
        return {};

    std::map<UUID, double> offsets;
    for (const auto& source : line) offsets.emplace(source.source, source.offset);
    const auto slots = static_cast<std::size_t>(std::ceil(total / every));
    std::vector<const Pick*> best(slots);
    for (const auto& pick : picks) {
        const auto offset = offsets.find(pick.source);
        if (offset == offsets.end()) continue;
        const double slot = std::floor((pick.middle() + offset->second) / every);
        if (!(slot >= 0 && slot < static_cast<double>(slots))) continue;
        auto& standing = best[static_cast<std::size_t>(slot)];
        if (!standing || pick.score.value_or(0) > standing->score.value_or(0)) standing = &pick;
    }
    std::vector<Pick> spread;
    for (std::size_t at = 0; at < slots; ++at) {
        const double from = static_cast<double>(at) * every;
        if (best[at])
            spread.push_back(*best[at]);
        else if (const auto any = anywhere(line, {from, std::min(from + every, total)}, length, generator))
            spread.push_back(*any);
    }
    return spread;
}

}

}
