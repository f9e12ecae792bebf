#include "core/ai/FixWords.h"

#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "core/ai/Prompts.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::FixWords {

namespace {

using nlohmann::json;

constexpr double maxChanged = 1.0 / 3;     // share of a line's letters
constexpr std::size_t longestLine = 2'000; // letters; a longer one is left alone

constexpr const char* task =
    "You correct what a speech recognizer misheard in someone's footage: game terms, names, and English or "
    "Japanese "
    "inside Thai, which can come out as odd syllables. Keep every line as it was spoken: its language, its "
    "slips and "
    "its fillers. Change only the words that were misheard, never the wording.";
constexpr const char* replyForm =
    "Reply with JSON only, one entry per line that needs a correction, none for the others:\n"
    R"({"lines": [{"line": "C14.03", "text": "the whole line, corrected"}]})";

/// The letters of a text, blanks left out.
std::u32string letters(std::string_view text) {
    std::u32string found;
    for (const unsigned char byte : Text::withoutWhiteSpace(Text::repaired(text))) {
        if ((byte & 0xC0) == 0x80)
            found.back() = found.back() << 6 | (byte & 0x3Fu);
        else
            found.push_back(byte);
    }
    return found;
}

/// How many letters must change for one text to become the other (Levenshtein's distance).
std::size_t distance(const std::u32string& one, const std::u32string& other) {
    std::vector<std::size_t> row(other.size() + 1);
    for (std::size_t n = 0; n < row.size(); ++n) row[n] = n;
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < other.size(); ++j) {
            const auto replaced = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j + 1] + 1, row[j] + 1, replaced});
        }
    }
    return row.back();
}

bool isRewording(std::string_view before, std::string_view after) {
    const auto was = letters(before);
    const auto is = letters(after);
    if (was.size() > longestLine || is.size() > 2 * longestLine) return true;
    return static_cast<double>(distance(was, is)) > static_cast<double>(was.size()) * maxChanged;
}

/// On one line and without blanks at its ends.
std::string tidy(const std::string& text) {
    return Text::trimmed(Brief::oneLine(text));
}

}

std::string instructions() {
    return fmt::format("{}\n\n{}\n\n{}", task, Prompts::transcriptWarning, replyForm);
}

Ask ask(const Brief::Clips& clips, const Project& project, const Said& said) {
    std::string words;
    if (const auto notes = Brief::notes(clips, project); !notes.empty())
        words = "The owner's notes on the footage:\n" + notes + "\n\n";
    words += "Correct these:\n\n" + Brief::lines(clips, project, said);
    return {Ask::Model::cheap,
            {{Ask::Message::Role::system, instructions()}, {Ask::Message::Role::user, std::move(words)}},
            12'000,
            4'000};
}

Corrected answer(const json& object, const Brief::Clips& clips, const Said& said) {
    Corrected read;
    std::set<UUID> asked;
    for (const auto* clip : clips) asked.insert(clip->id);
    const auto& list = Reply::member(object, "lines");
    if (!list.is_array()) return read;
    for (const auto& entry : list) {
        const auto* piece = said.piece(Reply::member(entry, "line"));
        const auto text = Ideas::text(entry, "text");
        if (!piece || piece->note || !asked.contains(piece->clip) || !text) continue;
        auto corrected = tidy(*text);
        if (corrected.empty() || corrected == piece->text) continue;
        if (isRewording(piece->text, corrected))
            read.leftOut.push_back(piece->tag);
        else
            read.corrections.insert_or_assign(piece->id, std::move(corrected));
    }
    return read;
}

std::size_t apply(const Corrections& corrections, const Said& read, Project& project, const Run& run) {
    std::size_t count = 0;
    std::set<UUID> touched;
    for (const auto& [id, text] : corrections) {
        const auto* piece = read.of(id);
        const auto found = piece ? project.transcripts.find(piece->source) : project.transcripts.end();
        if (found == project.transcripts.end()) continue;
        const auto& lines = *found->second.lines;
        const auto at = std::ranges::find(lines, id, &Line::id);
        if (at == lines.end() || at->text != piece->text) continue;
        found->second.lines.edit()[static_cast<std::size_t>(at - lines.begin())].text = text;
        touched.insert(piece->clip);
        ++count;
    }
    if (touched.empty()) return 0;
    for (auto& clip : project.clips.edit())
        if (touched.contains(clip.id)) LastRuns::note(clip.runs, Kit::ID::fixWords, run);
    return count;
}

}
