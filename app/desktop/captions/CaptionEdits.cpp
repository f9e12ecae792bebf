#include "app/desktop/captions/CaptionEdits.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/CaptionCommands.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/LookCommands.h"
#include "core/model/CaptionPresets.h"
#include "core/render/plan/CaptionText.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::CaptionEdits {
namespace {

constexpr std::int64_t usualLength = 24; ///< characters of a caption where no style says

using LineChange = CaptionCommands::LineChange;

void changeLine(Editor& editor, const UUID& line, const std::string& step, const LineChange& body) {
    LookCommands::changeLook(editor, step, [&](Look& look) { CaptionCommands::change(look, line, body); });
}

bool isOn(const std::optional<bool>& flag) {
    return flag.value_or(false);
}

std::optional<bool> flag(bool on) {
    return on ? std::optional(true) : std::nullopt;
}

/// Has a line stand broken by hand as it is shown, so that its pieces can be changed one by one.
void ensurePieces(CaptionLine& entry, const WholeCaption& caption) {
    if (caption.byHand() && entry.pieces) return;
    entry.pieces.emplace();
    for (const auto& cue : caption.cues) entry.pieces->push_back({.text = cue.text});
}

/// The piece that a pick names; null for the whole line.
CaptionLine::Piece* pieceOf(CaptionLine& entry, const Pick& caption) {
    if (!caption.piece || !entry.pieces) return nullptr;
    const auto at = static_cast<std::size_t>(*caption.piece);
    return at < entry.pieces->size() ? &(*entry.pieces)[at] : nullptr;
}

bool isThere(const WholeCaption& caption, const Pick& pick) {
    return !pick.piece || (*pick.piece >= 0 && *pick.piece < std::ssize(caption.cues));
}

const CaptionCue& cueOf(const WholeCaption& caption, const Pick& pick) {
    return caption.cues[static_cast<std::size_t>(pick.piece.value_or(0))];
}

/// Turns a flag over that both a line and its pieces have. One that holds for the whole line is handed down
/// to the pieces before one of them loses it.
void toggle(Editor& editor, const Pick& pick, const WholeCaption& caption, const std::string& step, bool now,
            std::optional<bool> CaptionLine::*ofLine, std::optional<bool> CaptionLine::Piece::*ofPiece) {
    changeLine(editor, pick.id, step, [&](CaptionLine& entry) {
        if (pick.piece) ensurePieces(entry, caption);
        auto* piece = pieceOf(entry, pick);
        if (!piece) {
            entry.*ofLine = flag(now);
            return;
        }
        if (isOn(entry.*ofLine))
            for (auto& each : *entry.pieces) each.*ofPiece = true;
        entry.*ofLine = std::nullopt;
        piece->*ofPiece = flag(now);
    });
}

/// What the line says, cut before each word that begins a piece. Nothing where its words are not found in it.
std::vector<std::string> cutBefore(const WholeCaption& caption, const std::vector<CaptionWord>& words) {
    const auto said = CaptionText::said(caption.raw);
    std::vector<std::string> texts;
    std::size_t begin = 0;
    std::size_t from = 0;
    for (const auto& word : words) {
        const auto at = said.find(word.text, from);
        if (at == std::string::npos) return {};
        if (word.begins && at > begin) {
            texts.push_back(said.substr(begin, at - begin));
            begin = at;
        }
        from = at + word.text.size();
    }
    texts.push_back(said.substr(begin));
    return texts;
}

/// Where each caption stands in the line as it is written; nothing where one isn't found.
std::optional<std::vector<std::size_t>> places(const WholeCaption& caption) {
    std::vector<std::size_t> found;
    std::size_t from = 0;
    for (const auto& cue : caption.cues) {
        const auto at = caption.raw.find(cue.text, from);
        if (at == std::string::npos) return {};
        found.push_back(at);
        from = at + cue.text.size();
    }
    return found;
}

const Line* find(const Project& project, const UUID& id, UUID& source) {
    for (const auto& [one, transcript] : project.transcripts)
        for (const auto& line : transcript.lines)
            if (line.id == id) {
                source = one;
                return &line;
            }
    return nullptr;
}

bool hasTimes(const CaptionLine& entry) {
    if (entry.start || entry.end) return true;
    return entry.pieces &&
           std::ranges::any_of(*entry.pieces, [](const auto& one) { return one.until.has_value(); });
}

}

std::vector<std::string> WholeCaption::texts() const {
    std::vector<std::string> list;
    for (const auto& cue : cues) list.push_back(cue.text);
    return list;
}

std::optional<WholeCaption> whole(const Editor& editor, const UUID& id) {
    const auto* video = editor.video();
    WholeCaption made;
    const auto* line = video ? find(editor.project(), id, made.source) : nullptr;
    if (!line) return {};
    const auto* entry = video->look ? video->look->captions.line(id) : nullptr;
    made.raw = line->text;
    made.retimed = entry && hasTimes(*entry);
    const CaptionCue cue{.start = 0, .end = 1, .text = CaptionText::said(line->text), .line = id};
    if (cue.text.empty()) return {};
    const auto most = CaptionPresets::style(editor.project(), *video).most.value_or(usualLength);
    made.cues = CaptionCue::pieces(cue, entry, most);
    return made;
}

std::optional<Pick> picked(const Editor& editor) {
    const auto pick = editor.picked();
    return pick && pick->kind == Pick::Kind::caption ? pick : std::nullopt;
}

std::vector<CaptionWord> words(const Editor& editor, const UUID& line) {
    std::vector<CaptionWord> list;
    const auto caption = whole(editor, line);
    if (!caption) return list;
    for (std::size_t piece = 0; piece < caption->cues.size(); ++piece) {
        const auto& cue = caption->cues[piece];
        int index = 0;
        for (const auto& range : CaptionText::words(cue.text)) {
            const bool stressed = std::ranges::find(cue.stress, index) != cue.stress.end();
            list.push_back({cue.text.substr(range.from, range.to - range.from), static_cast<int>(piece),
                            index, stressed, index == 0});
            ++index;
        }
    }
    return list;
}

void toggleBig(Editor& editor, const Pick& pick) {
    const auto caption = whole(editor, pick.id);
    if (!caption || !isThere(*caption, pick)) return;
    const bool now = !cueOf(*caption, pick).big;
    toggle(editor, pick, *caption, now ? "Big Caption" : "Normal Caption", now, &CaptionLine::big,
           &CaptionLine::Piece::big);
}

void toggleHidden(Editor& editor, const Pick& pick) {
    const auto caption = whole(editor, pick.id);
    if (!caption || !isThere(*caption, pick)) return;
    const bool now = !cueOf(*caption, pick).hidden;
    toggle(editor, pick, *caption, now ? "Hide Caption" : "Show Caption", now, &CaptionLine::hidden,
           &CaptionLine::Piece::hidden);
}

void toggleBreak(Editor& editor, const UUID& line, int word) {
    const auto caption = whole(editor, line);
    auto all = words(editor, line);
    if (!caption || word < 1 || word >= std::ssize(all)) return;
    auto& one = all[static_cast<std::size_t>(word)];
    one.begins = !one.begins;
    const auto texts = cutBefore(*caption, all);
    if (!texts.empty()) CaptionCommands::breakCaption(editor, line, texts);
}

void toggleStress(Editor& editor, const UUID& line, int word) {
    const auto caption = whole(editor, line);
    const auto all = words(editor, line);
    if (!caption || word < 0 || word >= std::ssize(all)) return;
    const auto& one = all[static_cast<std::size_t>(word)];
    const bool broken = caption->cues.size() > 1;
    const Pick pick{Pick::Kind::caption, line,
                    broken ? std::optional<std::int64_t>(one.piece) : std::nullopt};
    auto stress = cueOf(*caption, pick).stress;
    if (std::erase(stress, one.index) == 0) stress.push_back(one.index);
    std::ranges::sort(stress);
    const auto kept = stress.empty() ? std::nullopt : std::optional(stress);
    changeLine(editor, line, one.stressed ? "Unstress Word" : "Stress Word", [&](CaptionLine& entry) {
        if (broken) ensurePieces(entry, *caption);
        auto* piece = pieceOf(entry, pick);
        (piece ? piece->stress : entry.stress) = kept;
    });
}

void join(Editor& editor, const UUID& line) {
    const auto caption = whole(editor, line);
    if (caption && caption->byHand()) CaptionCommands::breakCaption(editor, line, {});
}

void resetTiming(Editor& editor, const UUID& line) {
    const auto caption = whole(editor, line);
    if (!caption || !caption->retimed) return;
    changeLine(editor, line, "Reset Caption Timing", [](CaptionLine& entry) {
        entry.start.reset();
        entry.end.reset();
        if (!entry.pieces) return;
        for (auto& piece : *entry.pieces) piece.until.reset();
    });
}

void breakAt(Editor& editor, const Pick& pick, std::size_t place) {
    const auto caption = whole(editor, pick.id);
    if (!caption || !isThere(*caption, pick)) return;
    std::vector<std::string> texts;
    for (const auto& cue : caption->cues) {
        if (&cue != &cueOf(*caption, pick)) {
            texts.push_back(cue.text);
            continue;
        }
        const auto at = std::min(place, cue.text.size());
        texts.push_back(cue.text.substr(0, at));
        texts.push_back(cue.text.substr(at));
        // At an end there is nothing to break, and the pieces that are there stay as they are.
        for (const auto& part : {texts.end()[-2], texts.back()})
            if (Text::trimmedOfBlanks(part).empty()) return;
    }
    CaptionCommands::breakCaption(editor, pick.id, texts);
}

std::string text(const Editor& editor, const Pick& pick) {
    const auto caption = whole(editor, pick.id);
    if (!caption || !isThere(*caption, pick)) return "";
    return pick.piece && places(*caption) ? cueOf(*caption, pick).text : caption->raw;
}

void retext(Editor& editor, const Pick& pick, const std::string& to) {
    const auto caption = whole(editor, pick.id);
    const auto clean = Text::trimmed(to);
    if (!caption || !isThere(*caption, pick) || clean.empty() || clean == text(editor, pick)) return;
    const auto found = places(*caption);
    if (!pick.piece || !found) return FootageCommands::correct(editor, pick.id, caption->source, clean);
    const auto at = static_cast<std::size_t>(*pick.piece);
    auto line = caption->raw;
    line.replace((*found)[at], caption->cues[at].text.size(), clean);
    editor.group("Correct Line", [&] {
        FootageCommands::correct(editor, pick.id, caption->source, line);
        if (!caption->byHand()) return;
        changeLine(editor, pick.id, "Correct Line", [&](CaptionLine& entry) {
            auto* piece = pieceOf(entry, pick);
            if (!piece) return;
            piece->text = clean;
            piece->stress.reset(); // its words are other ones
        });
    });
}

void perform(Editor& editor, std::string_view action) {
    const auto pick = picked(editor);
    if (!pick) return;
    if (action == "big") toggleBig(editor, *pick);
    if (action == "hide") toggleHidden(editor, *pick);
    if (action == "join") join(editor, pick->id);
    if (action == "resetTiming") resetTiming(editor, pick->id);
}

bool possible(const Editor& editor, std::string_view action) {
    const auto pick = picked(editor);
    const auto caption = pick ? whole(editor, pick->id) : std::nullopt;
    if (!caption || !isThere(*caption, *pick)) return false;
    if (action == "join") return caption->byHand();
    if (action == "resetTiming") return caption->retimed;
    return true;
}

}
