#include "app/desktop/transcript/TranscriptRows.h"

#include "core/model/ByMiddle.h"
#include "core/model/Stretch.h"

#include <algorithm>

namespace murbo::TranscriptRows {
namespace {

constexpr double touch = 0.05;         ///< seconds by which a line may reach into a cut that does not play it
constexpr std::size_t longest = 20000; ///< bytes of a line that are looked at
constexpr qsizetype longestShown = 4000;

/// What a document takes for the end of a block or of a frame, and what stands for a picture in it.
bool isReserved(QChar unit) {
    const auto code = unit.unicode();
    return code == 0xfffc || (code >= 0xfdd0 && code <= 0xfdef) || code >= 0xfffe;
}

bool endsALine(QChar unit) {
    return unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
           unit == QChar::ParagraphSeparator;
}

/// Stretches without overlaps in their order, to see at once whether one of them plays a line.
class PlayedStretches {
public:
    void add(double from, double to) { list.push_back({from, to}); }
    void settle() {
        std::ranges::sort(list, {}, &Stretch::from);
        std::vector<Stretch> joined;
        for (const auto& one : list)
            if (joined.empty() || joined.back().to < one.from)
                joined.push_back(one);
            else
                joined.back().to = std::max(joined.back().to, one.to);
        list = std::move(joined);
    }
    bool plays(double start, double end) const {
        const auto next = std::ranges::upper_bound(list, start + touch, {}, &Stretch::to);
        return next != list.end() && next->from + touch < end;
    }

private:
    std::vector<Stretch> list;
};

/// Rows one after the other.
class RowListing {
public:
    RowListing(const Basis& given, OrderedTranscripts& kept, std::size_t max)
        : basis(given), spoken(kept), maxRows(max) {
        std::erase_if(spoken, [this](const auto& entry) { return !basis.transcripts.contains(entry.first); });
        for (const auto& cut : basis.cuts)
            if (!cut.generator) played[cut.source].add(cut.start, cut.end);
        for (auto& [source, stretches] : played) stretches.settle();
    }

    void addClip(const Clip& clip) {
        const auto& said = transcript(clip.source);
        tags = &spokenOn(clip.source).tags();
        shorten = clip.tag() + ".";
        addMerged(ByMiddle(said.lines).in(clip), ByMiddle(said.notes).in(clip), clip.source);
    }

    void addSource(const UUID& source) {
        const auto& said = spokenOn(source);
        tags = &said.tags();
        addMerged(said.lines(), said.notes(), source);
    }

    void addVideo() {
        double start = 0;
        for (const auto& cut : basis.cuts) {
            if (!cut.generator) addCut(cut, start);
            start += cut.length();
        }
    }

    std::vector<TranscriptRow> rows;

private:
    const OrderedTranscript& spokenOn(const UUID& source) {
        const auto& said = transcript(source);
        const auto known = spoken.find(source);
        if (known != spoken.end() && known->second.isOf(said, basis.clips)) return known->second;
        return spoken.insert_or_assign(source, OrderedTranscript(source, said, basis.clips)).first->second;
    }

    const Transcript& transcript(const UUID& source) const {
        static const Transcript none;
        const auto found = basis.transcripts.find(source);
        return found == basis.transcripts.end() ? none : found->second;
    }

    /// Those that a cut plays. None before the first that could reach into it is looked at.
    template <class Spoken>
    static std::vector<const Spoken*> playedBy(const Cut& cut, const std::vector<const Spoken*>& all,
                                               double reach) {
        std::vector<const Spoken*> list;
        auto one = std::ranges::lower_bound(all, cut.start - reach, {}, &Spoken::start);
        for (; one != all.end() && (*one)->start < cut.end - touch; ++one)
            if (cut.start + touch < (*one)->end) list.push_back(*one);
        return list;
    }

    void addCut(const Cut& cut, double start) {
        const auto& said = spokenOn(cut.source);
        tags = &said.tags();
        const auto first = rows.size();
        addMerged(playedBy(cut, said.lines(), said.reach()), playedBy(cut, said.notes(), said.reach()),
                  cut.source);
        for (auto at = first; at < rows.size(); ++at) {
            auto& row = rows[at];
            row.cut = cut.id;
            row.from = start + std::max(row.start, cut.start) - cut.start;
            row.to = start + std::min(row.end, cut.end) - cut.start;
        }
    }

    void addMerged(const std::vector<const Line*>& lines, const std::vector<const Note*>& notes,
                   const UUID& source) {
        auto note = notes.begin();
        std::optional<double> said;
        for (const auto* line : lines) {
            if (line->isGone()) continue;
            for (; note != notes.end() && (*note)->start < line->start; ++note) add(**note, source, true);
            add(*line, source, false);
            if (rows.empty()) continue;
            const double quiet = said ? line->start - *said : 0;
            if (quiet >= basis.quietLeast && rows.back().id == line->id) rows.back().quiet = quiet;
            said = std::max(said.value_or(line->end), line->end);
        }
        for (; note != notes.end(); ++note) add(**note, source, true);
    }

    template <class Spoken>
    void add(const Spoken& one, const UUID& source, bool isNote) {
        if (rows.size() >= maxRows) return;
        TranscriptRow row;
        row.id = one.id;
        row.source = source;
        row.tag = tag(one.id);
        row.text = shown(one.text, row.whole);
        row.note = isNote;
        row.start = row.from = one.start;
        row.end = row.to = one.end;
        const auto cuts = played.find(source);
        row.used = !isNote && cuts != played.end() && cuts->second.plays(one.start, one.end);
        rows.push_back(std::move(row));
    }

    QString tag(const UUID& id) const {
        const auto found = tags->find(id);
        if (found == tags->end()) return {};
        const std::string_view full = found->second;
        const bool own = !shorten.empty() && full.starts_with(shorten);
        const auto part = own ? full.substr(shorten.size()) : full;
        return QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size()));
    }

    const Basis& basis;
    OrderedTranscripts& spoken;
    std::size_t maxRows;
    std::map<UUID, PlayedStretches> played;
    const std::unordered_map<UUID, std::string>* tags = nullptr; ///< of the source that is being added
    std::string shorten;                                         ///< the clip that needs no saying
};

template <class Record>
const Record* find(const List<Record>& all, const UUID& id) {
    const auto found = std::ranges::find(all, id, &Record::id);
    return found == all.end() ? nullptr : &*found;
}

}

Basis Basis::of(const Project& project, const SpokenSubject& subject, const std::optional<UUID>& openVideo,
                double quietLeast) {
    Basis basis;
    basis.subject = subject;
    basis.openVideo = openVideo;
    basis.quietLeast = quietLeast;
    basis.transcripts = project.transcripts;
    basis.clips = project.clips;
    basis.sources = project.sources;
    if (openVideo)
        if (const auto* video = find(project.videos, *openVideo)) basis.cuts = video->cuts;
    return basis;
}

std::vector<TranscriptRow> of(const Basis& basis, OrderedTranscripts& spoken, std::size_t max) {
    RowListing listing(basis, spoken, max);
    const auto& subject = basis.subject;
    if (subject.clip) {
        if (const auto* clip = find(basis.clips, *subject.clip)) listing.addClip(*clip);
    } else if (subject.source) {
        listing.addSource(*subject.source);
    } else if (subject.video) {
        listing.addVideo();
    }
    return std::move(listing.rows);
}

QString shown(const std::string& text, bool& whole) {
    const auto bytes = static_cast<qsizetype>(std::min(text.size(), longest));
    auto line = QString::fromUtf8(text.data(), bytes);
    whole = text.size() <= longest && line.size() <= longestShown;
    if (!whole) line = line.left(longestShown) + "…";
    for (auto& unit : line) {
        if (endsALine(unit)) unit = QLatin1Char(' ');
        if (isReserved(unit)) unit = QChar::ReplacementCharacter;
    }
    return line;
}

}
