#include "core/render/plan/CaptionCue.h"

#include "core/model/CaptionPresets.h"
#include "core/render/plan/CaptionBreak.h"
#include "core/render/plan/CaptionText.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace murbo {

namespace {

constexpr double minShown = 0.05;        // seconds; a line that meets a cut by less is not captioned there
constexpr std::int64_t usualLength = 24; // characters
constexpr std::size_t maxCues = 20'000;  // a file may show every line in each of thousands of cuts
constexpr double entrance = 0.2;         // seconds in which a caption comes in …
constexpr double exit = 0.16;            // … and a little more than it takes to go

/// A line as it is captioned: with its own times, or those it was given by hand.
struct Timed {
    double start = 0; // seconds on the source
    double end = 0;
    const Line* line = nullptr;
    const CaptionLine* caption = nullptr;
    std::size_t order = 0; // among the lines as stored
    double endSoFar = 0;   // the latest end of this line and those before it
};

using Changed = std::unordered_map<UUID, const CaptionLine*>;

/// The lines of one source in time order, so that a cut finds those that it shows without passing over the
/// hours that it doesn't.
class Spoken {
public:
    Spoken(const Transcript& transcript, const Changed& changed) {
        timed.reserve(transcript.lines.size());
        for (const Line& line : transcript.lines)
            if (!line.isGone()) add(line, changed);
        if (!std::ranges::is_sorted(timed, {}, &Timed::start))
            std::ranges::stable_sort(timed, {}, &Timed::start);
        double latest = -HUGE_VAL;
        for (Timed& each : timed) each.endSoFar = latest = std::max(latest, each.end);
    }

    /// The lines that a cut shows, as stored.
    std::vector<Timed> in(const Cut& cut) const {
        if (!(cut.length() > 0)) return {};
        const auto first = std::ranges::upper_bound(timed, cut.start + minShown, {}, &Timed::endSoFar);
        const auto last = std::ranges::lower_bound(timed, cut.end - minShown, {}, &Timed::start);
        std::vector<Timed> shown;
        for (auto each = first; each < last; ++each)
            if (cut.start + minShown < each->end) shown.push_back(*each);
        std::ranges::sort(shown, {}, &Timed::order);
        return shown;
    }

private:
    void add(const Line& line, const Changed& changed) {
        const auto found = changed.empty() ? changed.end() : changed.find(line.id);
        const CaptionLine* caption = found == changed.end() ? nullptr : found->second;
        Timed each{line.start, line.end, &line, caption, timed.size()};
        if (caption) each.start = caption->start.value_or(line.start);
        if (caption) each.end = caption->end.value_or(line.end);
        if (!std::isnan(each.start) && !std::isnan(each.end)) timed.push_back(each);
    }

    std::vector<Timed> timed;
};

Changed changedLines(const Video& video) {
    Changed changed;
    if (video.look)
        for (const CaptionLine& line : video.look->captions.lines) changed.try_emplace(line.line, &line);
    return changed;
}

std::string withoutBlanks(const std::string& text) {
    std::string result = text;
    std::erase(result, ' ');
    return result;
}

/// The breaks made by hand, as long as they still say what the line says.
const std::vector<CaptionLine::Piece>* handPieces(const CaptionCue& cue, const CaptionLine* line) {
    if (!line || !line->pieces || line->pieces->empty()) return nullptr;
    std::string joined;
    for (const CaptionLine::Piece& piece : *line->pieces) joined += piece.text;
    return withoutBlanks(joined) == withoutBlanks(cue.text) ? &*line->pieces : nullptr;
}

/// The shares of the line's time at which its pieces end, all but the last; nothing unless all are there, in
/// order and inside the line.
std::vector<double> handShares(const std::vector<CaptionLine::Piece>& pieces) {
    std::vector<double> shares;
    for (std::size_t index = 0; index + 1 < pieces.size(); ++index) {
        const double before = shares.empty() ? 0 : shares.back();
        const double share = pieces[index].until.value_or(0);
        if (!(share > 0 && share >= before && share < 1)) return {};
        shares.push_back(share);
    }
    return shares;
}

bool isOn(const std::optional<bool>& flag) {
    return flag.value_or(false);
}

/// What was changed on the line, and on this piece of it, over the plain caption. Word indexes of a line mean
/// nothing across its pieces, so they are not spread.
void apply(CaptionCue& cue, const CaptionLine& line, const CaptionLine::Piece* piece) {
    cue.big = isOn(line.big) || (piece && isOn(piece->big));
    cue.hidden = isOn(line.hidden) || (piece && isOn(piece->hidden));
    cue.stress = piece && piece->stress ? *piece->stress
                 : cue.piece            ? std::vector<std::int64_t>{}
                                        : line.stress.value_or(std::vector<std::int64_t>{});
    cue.move = piece && piece->move ? piece->move : line.move;
}

}

std::vector<CaptionCue> CaptionCue::cues(const Video& video, const Project& project) {
    const std::int64_t max = CaptionPresets::style(project, video).most.value_or(usualLength);
    const Changed changed = changedLines(video);
    std::map<UUID, Spoken> sources;
    std::vector<CaptionCue> cues;
    double start = 0;
    for (const Cut& cut : video.cuts) {
        const Spoken& spoken =
            sources.try_emplace(cut.source, project.transcript(cut.source), changed).first->second;
        for (const Timed& timed : spoken.in(cut)) {
            const double length = timed.end < cut.end ? timed.end - cut.start : cut.length();
            const CaptionCue cue{.start = start + std::max(timed.start - cut.start, 0.0),
                                 .end = start + std::min(length, cut.length()),
                                 .text = CaptionText::said(timed.line->text),
                                 .line = timed.line->id};
            if (!cue.text.empty())
                std::ranges::move(pieces(cue, timed.caption, max), std::back_inserter(cues));
        }
        start += cut.length();
        if (cues.size() > maxCues) break;
    }
    return cues;
}

std::vector<CaptionCue> CaptionCue::pieces(const CaptionCue& cue, const CaptionLine* line, std::int64_t max) {
    const std::vector<CaptionLine::Piece>* hand = handPieces(cue, line);
    CaptionBreak broken;
    if (hand) {
        std::ranges::transform(*hand, std::back_inserter(broken.texts), &CaptionLine::Piece::text);
        broken.shares = handShares(*hand);
        if (broken.shares.empty()) broken.shares = CaptionBreak::byLength(broken.texts);
    } else {
        broken = *CaptionBreak::of(cue.text, max);
    }
    auto& [texts, shares] = broken;

    // Not copied from the cue itself: each piece would keep room for the whole line's text.
    const CaptionCue bare{.line = cue.line, .big = cue.big, .hidden = cue.hidden};
    std::vector<CaptionCue> result;
    double start = cue.start;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const bool last = index + 1 == texts.size();
        CaptionCue piece = bare;
        piece.start = start;
        piece.end = start = last ? cue.end : cue.start + (cue.end - cue.start) * shares[index];
        piece.text = std::move(texts[index]);
        if (texts.size() > 1) piece.piece = static_cast<int>(index);
        piece.byHand = hand;
        if (line) apply(piece, *line, hand ? &(*hand)[index] : nullptr);
        result.push_back(std::move(piece));
    }
    return result;
}

std::optional<double> CaptionCue::shown(double time, std::vector<CaptionCue> cues) {
    if (cues.empty()) return {};
    std::ranges::stable_sort(cues, {}, &CaptionCue::start);
    const auto found = std::ranges::find_if(cues, [&](const CaptionCue& each) { return each.end > time; });
    const CaptionCue& cue = found == cues.end() ? cues.back() : *found;
    const double span = cue.end - cue.start;
    return cue.start + std::max(std::min(span / 2, entrance), span - exit);
}

}
