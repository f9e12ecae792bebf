#include "app/desktop/timeline/TimelineLayout.h"

#include "app/desktop/drawn/GeneratedCard.h"
#include "app/desktop/timeline/SpokenTimes.h"
#include "core/ai/Said.h"
#include "core/model/Lanes.h"
#include "core/model/ShownMoments.h"
#include "core/model/Times.h"
#include "core/model/edits/LookEdits.h"
#include "core/render/plan/CaptionCue.h"
#include "core/render/plan/PlacedShot.h"
#include "platform/base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace murbo {
namespace {

using Paint = TimelineBlock::Paint;

constexpr std::string_view recorded = "rec:"; ///< before a stretch of the footage as a parameter

const Look& lookOf(const Video& video) {
    static const Look none;
    return video.look ? *video.look : none;
}

/// Whether nothing of a lane is heard in the video.
bool isOff(const Video& video, Lane lane) {
    const auto& mix = lookOf(video).mix;
    return mix && mix->isMuted(lane);
}

double laneHeight(TimelineRow row, const TimelineLook& look) {
    switch (row) {
        case TimelineRow::shots:
            return 22;
        case TimelineRow::layers:
            return 24;
        case TimelineRow::picture:
            return (look.names ? TimelineLayout::nameHeight : 0) + look.filmstrip + look.waveform + 2;
        case TimelineRow::captions:
            return 24;
        case TimelineRow::overlays:
            return 22;
        case TimelineRow::sounds:
            return 24;
        case TimelineRow::music:
            return 26;
    }
    return 0;
}

/// "C14.03–05", "C14.03", or from one clip to another "C14.03–C15.01".
std::string tags(const std::string& first, const std::string& last) {
    if (first == last) return first;
    const auto point = first.find('.');
    const bool sameClip = point != first.npos && last.starts_with(first.substr(0, point + 1));
    return first + "–" + (sameClip ? last.substr(point + 1) : last);
}

/// What people and models call a cut: the lines that it plays, else the clip that it lies in.
std::string name(const Cut& cut, const TimelineLayout::Input& given) {
    if (cut.generator) {
        const auto book = given.book(cut.generator->playbook, cut.generator->version);
        return book ? book->name : cut.generator->playbook;
    }
    if (const auto ends = given.said.ends(cut)) return tags(ends->first->tag, ends->last->tag);
    for (const auto& clip : given.project.clips)
        if (clip.source == cut.source && clip.holds((cut.start + cut.end) / 2)) return clip.tag();
    const auto* source = given.project.source(cut.source);
    return source ? source->name() : "";
}

Paint paintOf(Shot::Layout layout) {
    switch (layout) {
        case Shot::Layout::split:
            return Paint::split;
        case Shot::Layout::content:
            return Paint::content;
        case Shot::Layout::face:
            return Paint::face;
    }
    return Paint::split;
}

std::string name(const Shot& shot, const TimelineLayout::Input& given) {
    static constexpr const char* names[] = {"Split", "Content", "Face"};
    std::string text = names[static_cast<int>(shot.layout)];
    if (shot.playbook) {
        const auto book = given.book(*shot.playbook, shot.version.value_or(1));
        text = book ? book->name : *shot.playbook;
    }
    return shot.move ? text + ", " + *shot.move : text;
}

/// What an overlay shows of a file or of the footage itself.
void showPicture(TimelineBlock& block, const Overlay& overlay, const TimelineLayout::BookFacts& book,
                 const TimelineLayout::Input& given) {
    if (book.media.empty()) return;
    auto named = book.usualMedia;
    if (overlay.values)
        if (const auto own = overlay.values->find(book.media); own != overlay.values->end())
            named = own->second;
    if (!named.starts_with(recorded)) {
        block.file = given.file(named);
        if (block.file && named != book.usualMedia) block.label = block.file->filename().string();
        return;
    }
    if (const auto start = Numbers::parse(named.substr(recorded.size(), named.find('-') - recorded.size()))) {
        block.source = overlay.source;
        block.at = *start;
    }
}

std::string name(const SoundCue& cue) {
    return std::filesystem::path(cue.file).stem().string();
}

/// Asks for each playbook once, for each time its file is read.
TimelineLayout::Input askingOnce(TimelineLayout::Input given) {
    using Facts = std::optional<TimelineLayout::BookFacts>;
    given.book = [ask = std::move(given.book),
                  known = std::map<std::pair<std::string, std::int64_t>, Facts>()](
                     const std::string& id, std::int64_t version) mutable {
        const std::pair key(id, version);
        auto found = known.find(key);
        if (found == known.end()) found = known.emplace(key, ask(id, version)).first;
        return found->second;
    };
    return given;
}

}

TimelineLayout TimelineLayout::of(const Input& given) {
    const auto input = askingOnce(given);
    TimelineLayout layout;
    layout.look = given.look;
    layout.length = given.video.length();
    layout.addShots(input);
    layout.addCuts(input);
    layout.addCaptions(input);
    layout.addOverlays(input);
    layout.addSounds(input);
    layout.stack();
    return layout;
}

void TimelineLayout::addShots(const Input& given) {
    for (const auto& placed : PlacedShot::place(lookOf(given.video).shots, given.video.cuts)) {
        TimelineBlock block;
        block.pick = {Pick::Kind::shot, placed.shot.id, {}};
        block.pickable = !placed.implicit;
        block.row = TimelineRow::shots;
        block.from = placed.start;
        block.to = placed.end;
        block.label = name(placed.shot, given);
        block.paint = paintOf(placed.shot.layout);
        block.byBook = placed.shot.playbook.has_value();
        blocks.push_back(std::move(block));
    }
}

void TimelineLayout::addCuts(const Input& given) {
    double start = 0;
    SpokenTimes own;
    auto& spoken = given.spoken ? *given.spoken : own;
    const auto& cuts = given.video.cuts;
    for (std::size_t at = 0; at < cuts.size(); ++at) {
        const auto& cut = cuts[at];
        TimelineBlock block;
        block.pick = {Pick::Kind::cut, cut.id, {}};
        block.from = start;
        block.to = start += cut.length();
        block.label = name(cut, given);
        block.muted = cut.muted.value_or(false);
        block.silent = isOff(given.video, Lane::video);
        block.missing = given.missing.contains(cut.source);
        block.at = cut.start;
        if (cut.generator)
            block.card = GeneratedCard::number(cut, given.video.aspect);
        else {
            block.source = cut.source;
            const auto* source = given.project.source(cut.source);
            block.sourceLength = source ? source->length : 0;
            block.startsInWord = (at == 0 || !SpokenTimes::goesOn(cuts[at - 1], cut)) &&
                                 spoken.holds(given.project, cut.source, cut.start);
            block.endsInWord = (at + 1 == cuts.size() || !SpokenTimes::goesOn(cut, cuts[at + 1])) &&
                               spoken.holds(given.project, cut.source, cut.end);
        }
        if (given.look.quiet && !cut.generator)
            for (const auto& quiet :
                 spoken.quiet(given.project, cut.source, {cut.start, cut.end}, given.quietLeast))
                block.quiet.push_back(
                    {block.from + quiet.from - cut.start, block.from + quiet.to - cut.start});
        if (cut.role && !cut.role->empty()) block.label += "  " + *cut.role;
        blocks.push_back(std::move(block));
    }
}

void TimelineLayout::addCaptions(const Input& given) {
    const bool on = lookOf(given.video).captions.on; // else they lie there as if hidden, to be put back
    for (const auto& cue : CaptionCue::cues(given.video, given.project)) {
        TimelineBlock block;
        block.pick = {Pick::Kind::caption, cue.line, cue.piece};
        block.row = TimelineRow::captions;
        block.from = cue.start;
        block.to = cue.end;
        block.label = cue.text;
        block.paint = cue.hidden || !on ? Paint::hiddenCaption : cue.big ? Paint::bigCaption : Paint::caption;
        blocks.push_back(std::move(block));
    }
}

void TimelineLayout::addOverlays(const Input& given) {
    const ShownMoments shown(given.video.cuts);
    for (const auto& overlay : lookOf(given.video).overlays) {
        const auto start = shown.on(overlay.source, overlay.at);
        if (!start) continue;
        const auto book = given.book(overlay.playbook, overlay.version);
        TimelineBlock block;
        block.pick = {Pick::Kind::overlay, overlay.id, {}};
        block.row = book && book->generator ? TimelineRow::layers : TimelineRow::overlays;
        block.from = *start;
        block.to = *start + overlay.length;
        block.label = book ? book->name : overlay.playbook;
        block.paint = book && book->generator ? Paint::layer : Paint::overlay;
        block.missing = !book;
        if (book && given.file) showPicture(block, overlay, *book, given);
        blocks.push_back(std::move(block));
    }
}

void TimelineLayout::addSounds(const Input& given) {
    const ShownMoments shown(given.video.cuts);
    const auto add = [&](const List<SoundCue>& cues, Pick::Kind kind, TimelineRow row, Paint paint) {
        const bool off = isOff(given.video, kind == Pick::Kind::sound ? Lane::sounds : Lane::music);
        for (const auto& cue : cues) {
            const auto start = shown.on(cue.source, cue.at);
            if (!start) continue;
            const auto unknown = kind == Pick::Kind::sound
                                     ? *start + LookEdits::unknownSound
                                     : std::max(length, *start + LookEdits::unknownSound);
            TimelineBlock block;
            block.pick = {kind, cue.id, {}};
            block.row = row;
            block.from = *start;
            block.to = cue.length ? *start + *cue.length : unknown;
            block.label = name(cue);
            block.paint = paint;
            block.muted = off || cue.muted.value_or(false);
            block.at = cue.skip.value_or(0);
            if (given.file) block.file = given.file(cue.file);
            blocks.push_back(std::move(block));
        }
    };
    const auto& dress = lookOf(given.video);
    add(dress.sounds, Pick::Kind::sound, TimelineRow::sounds, Paint::sound);
    add(dress.music, Pick::Kind::music, TimelineRow::music, Paint::music);
}

/// Puts the rows under one another. Rows that always are there stay when they are empty, so that nothing
/// jumps while the first block comes; the others come with their blocks.
void TimelineLayout::stack() {
    std::stable_sort(blocks.begin(), blocks.end(), [](const TimelineBlock& a, const TimelineBlock& b) {
        return std::pair(a.row, a.from) < std::pair(b.row, b.from);
    });
    double top = rulerHeight + gap;
    for (int at = 0; at <= static_cast<int>(TimelineRow::music); ++at) {
        TimelineTrack track;
        track.row = static_cast<TimelineRow>(at);
        std::vector<TimelineBlock*> own;
        for (auto& block : blocks)
            if (block.row == track.row) own.push_back(&block);
        if (own.empty() && track.row != TimelineRow::picture) continue;
        std::vector<Stretch> spans;
        for (const auto* block : own) spans.push_back({block->from, block->to});
        const auto lanes = Lanes::assign(spans);
        for (std::size_t index = 0; index < own.size(); ++index) {
            own[index]->lane = track.row == TimelineRow::picture ? 0 : static_cast<int>(lanes[index]);
            track.lanes = std::max(track.lanes, own[index]->lane + 1);
        }
        track.top = top;
        track.lane = laneHeight(track.row, look);
        track.height = track.lane * track.lanes;
        top += track.height + gap;
        tracks.push_back(track);
    }
    height = top;
}

const TimelineLayout::TimelineTrack* TimelineLayout::track(TimelineRow row) const {
    const auto found = std::ranges::find(tracks, row, &TimelineTrack::row);
    return found == tracks.end() ? nullptr : &*found;
}

double TimelineLayout::top(const TimelineBlock& block) const {
    const auto* row = track(block.row);
    return row ? row->top + row->lane * block.lane : 0;
}

double TimelineLayout::blockHeight(const TimelineBlock& block) const {
    const auto* row = track(block.row);
    return row ? row->lane - (row->row == TimelineRow::picture ? 0 : 1) : 0;
}

std::optional<TimelineRow> TimelineLayout::rowAt(double y) const {
    for (const auto& row : tracks)
        if (y >= row.top && y < row.top + row.height) return row.row;
    return {};
}

const TimelineBlock* TimelineLayout::hit(double time, double y, double slack) const {
    const TimelineBlock* near = nullptr;
    for (const auto& block : blocks) {
        const double above = top(block);
        if (y < above || y >= above + blockHeight(block)) continue;
        if (time >= block.from && time < block.to) return &block;
        if (time >= block.from - slack && time < block.to + slack && block.length() < 2 * slack)
            near = &block;
    }
    return near;
}

const TimelineBlock* TimelineLayout::find(const Pick& pick) const {
    const auto found = std::ranges::find(blocks, pick, &TimelineBlock::pick);
    return found == blocks.end() ? nullptr : &*found;
}

}
