#pragma once

#include "app/editor/Pick.h"
#include "core/render/plan/CaptionCue.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

class Editor;

/// What a person does to one caption, in the list of captions and on the timeline. A caption is said by its
/// pick: its line, and its piece where the line is broken. Picks that name nothing do nothing.
namespace CaptionEdits {

/// A line with its captions as they stand: `cues` run over the line's time from 0 to 1.
struct WholeCaption {
    UUID source;
    std::string raw; ///< as it stands in the transcript
    std::vector<CaptionCue> cues;
    bool retimed = false; ///< its times, or those of its pieces, were set by hand

    std::vector<std::string> texts() const;
    bool byHand() const { return !cues.empty() && cues.front().byHand; }
};
std::optional<WholeCaption> whole(const Editor& editor, const UUID& line);

/// The caption that is picked, the only one or the main one.
std::optional<Pick> picked(const Editor& editor);

/// One word of a line, and whether it begins a piece.
struct CaptionWord {
    std::string text;
    int piece = 0;
    int index = 0; ///< among the words of its piece
    bool stressed = false;
    bool begins = false;

    bool operator==(const CaptionWord&) const = default;
};
std::vector<CaptionWord> words(const Editor& editor, const UUID& line);

void toggleBig(Editor& editor, const Pick& caption);
void toggleHidden(Editor& editor, const Pick& caption);
/// Breaks the line before one of its words, or joins it there again. The first word is none to break before.
void toggleBreak(Editor& editor, const UUID& line, int word);
/// Has a word of the line stand out, or not.
void toggleStress(Editor& editor, const UUID& line, int word);
/// Takes the breaks away that were made by hand.
void join(Editor& editor, const UUID& line);
void resetTiming(Editor& editor, const UUID& line);
/// Breaks a caption in two at a place of its text, in bytes.
void breakAt(Editor& editor, const Pick& caption, std::size_t place);

/// What is typed when a caption is edited: its words; with nothing broken the whole line's, tags included.
std::string text(const Editor& editor, const Pick& caption);
/// Corrects what a caption says, and with it the line. Breaks made by hand stay.
void retext(Editor& editor, const Pick& caption, const std::string& to);

/// Carries out an action on the picked caption: "big", "hide", "join", "resetTiming".
void perform(Editor& editor, std::string_view action);
bool possible(const Editor& editor, std::string_view action);

}

}
