#include "app/editor/commands/CaptionCommands.h"

#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/Row.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::CaptionCommands {
namespace {

constexpr double firstMeet = 0.02; ///< share of a line's time before which no piece may end
constexpr double lastMeet = 0.98;

void changeLine(Editor& editor, const UUID& line, const std::string& name, const LineChange& body) {
    LookCommands::changeLook(editor, name, [&](Look& look) { change(look, line, body); });
}

void dragLine(Editor& editor, const UUID& line, const LineChange& body) {
    LookCommands::dragLook(editor, [&](Look& look) { change(look, line, body); });
}

void retime(Editor& editor, const UUID& line, double start, double end) {
    dragLine(editor, line, [&](CaptionLine& entry) {
        entry.start = start;
        entry.end = end;
    });
}

void resetTiming(Editor& editor, const UUID& line) {
    changeLine(editor, line, "Reset Caption Timing", [](CaptionLine& entry) {
        entry.start.reset();
        entry.end.reset();
        if (!entry.pieces) return;
        for (auto& piece : *entry.pieces) piece.until.reset();
    });
}

std::vector<CaptionLine::Piece> pieces(const std::vector<std::string>& texts) {
    std::vector<CaptionLine::Piece> made;
    for (const auto& text : texts) made.push_back({.text = text});
    return made;
}

bool fit(const std::vector<std::string>& texts, const std::vector<double>& meets) {
    return meets.size() + 1 == texts.size() && std::is_sorted(meets.begin(), meets.end()) &&
           std::all_of(meets.begin(), meets.end(),
                       [](double meet) { return firstMeet < meet && meet < lastMeet; });
}

}

void change(Look& look, const UUID& line, const LineChange& body) {
    auto& lines = look.captions.lines.edit();
    auto entry =
        std::find_if(lines.begin(), lines.end(), [&](const CaptionLine& one) { return one.line == line; });
    if (entry == lines.end()) entry = lines.insert(lines.end(), {.line = line});
    body(*entry);
    entry->line = line;
}

void hide(Look& look, const UUID& line, const std::optional<std::int64_t>& piece) {
    change(look, line, [&](CaptionLine& entry) {
        const auto at = static_cast<std::size_t>(piece.value_or(0));
        if (piece && entry.pieces && at < entry.pieces->size())
            (*entry.pieces)[at].hidden = true;
        else
            entry.hidden = true;
    });
}

void retimePieces(Editor& editor, const UUID& line, const std::vector<std::string>& texts,
                  const std::vector<double>& meets) {
    if (!fit(texts, meets)) return;
    dragLine(editor, line, [&](CaptionLine& entry) {
        if (!entry.pieces || entry.pieces->size() != texts.size()) entry.pieces = pieces(texts);
        for (std::size_t at = 0; at < meets.size(); ++at) (*entry.pieces)[at].until = meets[at];
        entry.pieces->back().until.reset();
    });
}

void breakCaption(Editor& editor, const UUID& line, const std::vector<std::string>& texts) {
    std::vector<std::string> parts;
    for (const auto& text : texts)
        if (auto part = Text::trimmedOfBlanks(text); !part.empty()) parts.push_back(std::move(part));
    const bool broken = parts.size() > 1;
    changeLine(editor, line, broken ? "Break Caption" : "Join Caption", [&](CaptionLine& entry) {
        entry.pieces = broken ? std::optional(pieces(parts)) : std::nullopt;
    });
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    using Found = Named::FoundLine;
    return {
        row<Kind::LineTag, Kind::Text, Kind::Fields<CaptionLine>>(
            "changeCaption", "Change Caption", {"line", "name", "change"},
            [](Editor& editor, const Found& found, const std::string& name, const LineChange& body) {
                changeLine(editor, found.line.id, name, body);
            })
            .when(hasVideo),
        row<Kind::LineTag, Kind::Seconds, Kind::Seconds>(
            "retimeCaption", "Drag the Time of a Caption", {"line", "start", "end"},
            [](Editor& editor, const Found& found, double start, double end) {
                retime(editor, found.line.id, start, end);
            })
            .when(hasVideo),
        row<Kind::LineTag, Kind::ListOf<Kind::AnyText>, Kind::ListOf<Kind::Number>>(
            "retimePieces", "Drag the Times of a Caption's Pieces", {"line", "texts", "meets"},
            [](Editor& editor, const Found& found, const std::vector<std::string>& texts,
               const std::vector<double>& meets) { retimePieces(editor, found.line.id, texts, meets); })
            .when(hasVideo),
        row<Kind::LineTag>("resetCaptionTiming", "Reset Caption Timing", {"line"},
                           [](Editor& editor, const Found& found) { resetTiming(editor, found.line.id); })
            .when(hasVideo),
        row<Kind::LineTag, Kind::ListOf<Kind::AnyText>>(
            "breakCaption", "Break or Join Caption", {"line", "into"},
            [](Editor& editor, const Found& found, const std::vector<std::string>& texts) {
                breakCaption(editor, found.line.id, texts);
            })
            .when(hasVideo),
    };
}

}
