#include "core/ai/Said.h"

#include "core/ai/Reply.h"
#include "core/model/Tags.h"
#include "platform/base/Numbers.h"
#include "platform/base/Text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {

namespace {

constexpr double shortestAsked = 0.3; ///< seconds; less is no cut that a model could mean
constexpr double touch = 0.05;        ///< seconds; a trim may reach this far into a line without playing it

bool isDigit(char c) {
    return '0' <= c && c <= '9';
}

bool isCapital(char c) {
    return 'A' <= c && c <= 'Z';
}

bool isSmallLetter(char c) {
    return 'a' <= c && c <= 'z';
}

std::optional<std::int64_t> number(std::string_view digits) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || !isDigit(digits[0]) || error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

bool byStart(const Said::Piece* one, const Said::Piece* other) {
    return one->start < other->start;
}

bool isGenerated(const Cut& cut) {
    return cut.generator.has_value();
}

/// Whether two lists of lines or notes differ in words alone.
template <class Spoken, class SameState>
bool samePlaces(const List<Spoken>& some, const List<Spoken>& others, SameState sameState) {
    return some.same(others) || std::ranges::equal(some, others, [&](const Spoken& one, const Spoken& other) {
               return one.id == other.id && one.start == other.start && one.end == other.end &&
                      sameState(one, other);
           });
}

bool samePlaces(const Transcript& one, const Transcript& other) {
    return samePlaces(one.lines, other.lines,
                      [](const Line& line, const Line& now) { return line.isGone() == now.isGone(); }) &&
           samePlaces(one.notes, other.notes, [](const Note&, const Note&) { return true; });
}

}

Said::Said(const Project& project) {
    std::size_t count = 0;
    for (const auto& [_, transcript] : project.transcripts)
        count += transcript.lines.size() + transcript.notes.size();
    pieces.reserve(count); // pointers to them stay valid
    std::set<UUID> done;
    for (const auto& source : project.sources)
        if (done.insert(source.id).second) add(source.id, project);
    index();
}

void Said::add(const UUID& source, const Project& project) {
    const auto found = project.transcripts.find(source);
    if (found == project.transcripts.end()) return;
    auto& kept = transcripts.emplace_back(Kept{source, found->second, pieces.size()});
    const auto& transcript = kept.transcript;
    auto names = Tags::named(source, project);
    const auto enter = [&](const auto& one, bool note, bool gone) {
        const auto name = names.find(one.id);
        if (name == names.end()) return;
        pieces.push_back({.id = one.id,
                          .tag = name->second.tag,
                          .clip = name->second.clip,
                          .source = source,
                          .start = one.start,
                          .end = one.end,
                          .text = one.text,
                          .note = note,
                          .gone = gone});
    };
    for (const auto& line : transcript.lines) enter(line, false, line.isGone());
    for (const auto& note : transcript.notes) enter(note, true, false);
    kept.end = pieces.size();
}

bool Said::reword(const std::map<UUID, Transcript>& now) {
    for (const auto& kept : transcripts) {
        const auto found = now.find(kept.source);
        if (found == now.end() || !samePlaces(kept.transcript, found->second)) return false;
    }
    for (auto& kept : transcripts) reword(kept, now.at(kept.source));
    return true;
}

void Said::reword(Kept& kept, const Transcript& now) {
    if (kept.transcript.lines.same(now.lines) && kept.transcript.notes.same(now.notes)) return;
    auto at = kept.first;
    // Pieces stand in the order of their lines; lines that lie in no clip have none.
    const auto take = [&](const auto& one) {
        if (at == kept.end || pieces[at].id != one.id) return;
        auto& piece = pieces[at];
        if (!low.empty() && piece.text != one.text) low[at] = Text::lowercased(one.text);
        piece.text = one.text;
        ++at;
    };
    for (const auto& line : now.lines) take(line);
    for (const auto& note : now.notes) take(note);
    kept.transcript = now;
}

void Said::index() {
    byTag.reserve(pieces.size());
    byId.reserve(pieces.size());
    for (const auto& piece : pieces) {
        byTag.emplace(piece.tag, &piece);
        byId.emplace(piece.id, &piece);
        byClip[piece.clip].push_back(&piece);
        auto& source = bySource[piece.source];
        source.pieces.push_back(&piece);
        source.longest = std::max(source.longest, piece.end - piece.start);
    }
    for (auto& [_, list] : byClip) std::stable_sort(list.begin(), list.end(), byStart);
    for (auto& [_, source] : bySource) std::stable_sort(source.pieces.begin(), source.pieces.end(), byStart);
    // A clip whose part has capitals prints tags that differ from what models' spellings are brought to.
    otherForms.reserve(pieces.size());
    for (const auto& piece : pieces)
        if (std::any_of(piece.tag.begin() + 1, piece.tag.end(), isCapital))
            if (auto form = tag(piece.tag)) byTag.emplace(otherForms.emplace_back(std::move(*form)), &piece);
}

const Said::Piece* Said::piece(const nlohmann::json& value) const {
    if (!value.is_string()) return nullptr;
    const auto& text = value.get_ref<const std::string&>();
    const auto* found = tagged(text); // as most models write it
    const auto form = found ? std::nullopt : tag(text);
    if (form) found = tagged(*form);
    return found && !found->gone ? found : nullptr;
}

const Said::Piece* Said::tagged(std::string_view tag) const {
    const auto found = byTag.find(tag);
    return found == byTag.end() ? nullptr : found->second;
}

const Said::Piece* Said::of(const UUID& id) const {
    const auto found = byId.find(id);
    return found == byId.end() ? nullptr : found->second;
}

const Said::Pieces& Said::inClip(const UUID& clip) const {
    static const Pieces none;
    const auto found = byClip.find(clip);
    return found == byClip.end() ? none : found->second;
}

const Said::Pieces& Said::on(const UUID& source) const {
    static const Pieces none;
    const auto found = bySource.find(source);
    return found == bySource.end() ? none : found->second.pieces;
}

Said::Near Said::nearest(double second, const UUID& source) const {
    const auto found = bySource.find(source);
    if (found == bySource.end() || !std::isfinite(second)) return {};
    const auto& [all, longest] = found->second;
    const auto after = [](double moment, const Piece* piece) { return moment < piece->start; };
    const auto next = std::upper_bound(all.begin(), all.end(), second, after);
    Near best{nullptr, std::numeric_limits<double>::infinity()};
    const auto offer = [&](const Piece* piece, double distance) {
        if (!piece->gone && distance < best.distance) best = {piece, distance};
    };
    for (auto at = next; at != all.begin();) {
        const auto* piece = *--at;
        if (second - piece->start - longest >= best.distance) break; // all before it end earlier still
        offer(piece, std::max(second - piece->end, 0.0));
    }
    const auto later = std::find_if(next, all.end(), [](const Piece* piece) { return !piece->gone; });
    if (later != all.end()) offer(*later, (*later)->start - second);
    return best;
}

Said::Pieces Said::holding(std::string_view words) const {
    std::call_once(lowered, [this] {
        low.reserve(pieces.size());
        for (const auto& piece : pieces) low.push_back(Text::lowercased(piece.text));
    });
    const auto wanted = Text::lowercased(words);
    Pieces found;
    for (std::size_t at = 0; at < pieces.size(); ++at)
        if (!pieces[at].gone && low[at].find(wanted) != std::string::npos) found.push_back(&pieces[at]);
    return found;
}

std::optional<std::string> Said::tag(std::string_view text) {
    constexpr std::size_t longest = 100; // no tag comes near, and lowering costs time
    if (text.size() > longest) return std::nullopt;
    const auto low = Text::lowercased(Text::trimmedOfBlanks(text));
    const auto point = low.rfind('.');
    if (!low.starts_with('c') || point == low.npos) return std::nullopt;
    const auto before = std::string_view(low).substr(1, point - 1);
    const auto letters = std::find_if_not(before.begin(), before.end(), isDigit);
    const auto clip = number({before.begin(), letters});
    if (!clip || !std::all_of(letters, before.end(), isSmallLetter)) return std::nullopt;
    auto after = std::string_view(low).substr(point + 1);
    const bool isNote = after.starts_with('n');
    const auto place = number(isNote ? after.substr(1) : after);
    if (!place) return std::nullopt;
    return fmt::format("C{}{}.{}", Numbers::twoDigits(*clip), std::string_view(letters, before.end()),
                       isNote ? fmt::format("n{}", *place) : Numbers::twoDigits(*place));
}

std::vector<Cut> Said::cuts(const nlohmann::json& value, const std::set<UUID>* clips) const {
    std::vector<Cut> made;
    if (!value.is_array()) return made;
    for (const auto& one : value)
        if (auto cut = this->cut(one, clips)) made.push_back(std::move(*cut));
    return made;
}

std::optional<Cut> Said::cut(const nlohmann::json& value, const std::set<UUID>* clips) const {
    const auto* first = piece(Reply::member(value, "from"));
    const auto* last = piece(Reply::member(value, "to"));
    if (!first || !last || first->clip != last->clip) return std::nullopt;
    if (clips && !clips->contains(first->clip)) return std::nullopt;
    // Also refuses what is no number.
    if (!(last->end - first->start >= shortestAsked)) return std::nullopt;
    Cut cut{.source = first->source, .start = first->start, .end = last->end};
    const auto& role = Reply::member(value, "role");
    if (role.is_string() && !role.get_ref<const std::string&>().empty()) cut.role = role.get<std::string>();
    return cut;
}

Said::Pieces Said::played(const Cut& cut) const {
    Pieces found;
    const auto source = bySource.find(cut.source);
    if (source == bySource.end() || isGenerated(cut)) return found;
    const auto& [all, longest] = source->second;
    const auto before = [](const Piece* piece, double moment) { return piece->start < moment; };
    const auto to = std::lower_bound(all.begin(), all.end(), cut.end - touch, before);
    auto from = std::lower_bound(all.begin(), to, cut.start + touch - longest, before);
    for (; from != to; ++from)
        if (!(*from)->gone && cut.start + touch < (*from)->end) found.push_back(*from);
    return found;
}

std::optional<Said::Ends> Said::ends(const Cut& cut) const {
    const auto found = played(cut);
    if (found.empty()) return std::nullopt;
    return Ends{found.front(), found.back()};
}

std::vector<Cut> Said::keepingTrims(std::vector<Cut> cuts, const List<Cut>& old) const {
    std::map<std::pair<const Piece*, const Piece*>, const Cut*> trimmed;
    for (const auto& cut : old)
        if (const auto its = ends(cut)) trimmed.emplace(std::pair{its->first, its->last}, &cut);
    for (auto& cut : cuts) {
        const auto its = ends(cut);
        if (!its) continue;
        const auto found = trimmed.find({its->first, its->last});
        if (found == trimmed.end()) continue;
        auto kept = *found->second;
        kept.id = cut.id;
        if (cut.role && !cut.role->empty()) kept.role = cut.role;
        cut = std::move(kept);
    }
    return cuts;
}

const std::string& Said::firstTag(const Cut& cut) const {
    static const std::string none;
    const auto its = ends(cut);
    return its ? its->first->tag : none;
}

std::vector<Cut> Said::keepingGenerators(std::vector<Cut> cuts, const List<Cut>& old) const {
    for (std::size_t at = 0; at < old.size(); ++at) {
        if (!isGenerated(old[at])) continue;
        auto place = cuts.end();
        if (std::all_of(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(at), isGenerated)) {
            place = cuts.begin() + static_cast<std::ptrdiff_t>(std::min(at, cuts.size()));
        } else {
            const auto next =
                std::find_if_not(old.begin() + static_cast<std::ptrdiff_t>(at), old.end(), isGenerated);
            const auto& anchor = next == old.end() ? std::string() : firstTag(*next);
            place = std::find_if(cuts.begin(), cuts.end(), [&](const Cut& cut) {
                return !anchor.empty() && !isGenerated(cut) && firstTag(cut) == anchor;
            });
        }
        cuts.insert(place, old[at]);
    }
    return cuts;
}

}
