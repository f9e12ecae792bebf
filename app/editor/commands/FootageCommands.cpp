#include "app/editor/commands/FootageCommands.h"

#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/Row.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::FootageCommands {
namespace {

constexpr double markGap = 0.1; ///< seconds that a marked range keeps

bool holdsAnything(const Editor& editor) {
    return editor.held() || (editor.heldSource() && editor.project().source(*editor.heldSource()));
}

template <class Change>
void changeClips(Project& project, const std::vector<UUID>& clips, Change change) {
    for (auto& clip : project.clips.edit())
        if (std::find(clips.begin(), clips.end(), clip.id) != clips.end()) change(clip);
}

}

std::vector<UUID> clipsActedOn(const Editor& editor) {
    if (!editor.pickedClips().empty()) return editor.pickedClips();
    return editor.held() ? std::vector{*editor.heldClip()} : std::vector<UUID>();
}

void rate(Editor& editor, const std::vector<UUID>& clips, std::optional<std::int64_t> value) {
    if (value == 0) value.reset();
    const char* name = value == 1 ? "Favourite" : value == -1 ? "Reject" : "Clear Rating";
    editor.change(name, [&](Project& project) {
        changeClips(project, clips, [&](Clip& clip) { clip.rating = value; });
    });
}

RenameQuestion askToRename(const Editor& editor, const UUID& id) {
    const auto& clip = *editor.clip(id);
    RenameQuestion question{"Rename " + clip.tag(), {}, editor.title(clip)};
    if (clip.summary)
        question.text = "Described as “" + clip.summary->title + "”, which stays beside your title.";
    return question;
}

void renameClip(Editor& editor, const UUID& id, const std::string& to) {
    const auto name = Text::trimmed(to).empty() ? std::nullopt : std::optional(to);
    editor.change("Rename Clip", [&](Project& project) {
        changeClips(project, {id}, [&](Clip& clip) { clip.name = name; });
    });
}

void correct(Editor& editor, const UUID& line, const UUID& source, const std::string& to) {
    const auto text = Text::trimmed(to);
    if (text.empty()) return;
    editor.change("Correct Line", [&](Project& project) {
        const auto transcript = project.transcripts.find(source);
        if (transcript == project.transcripts.end()) return;
        for (auto& said : transcript->second.lines.edit())
            if (said.id == line) said.text = text;
    });
}

void correctEverywhere(Editor& editor, const WordCorrection& word) {
    const auto places = word.places(editor.project());
    if (places == 0) return editor.refuse("“" + word.from + "” stands nowhere else");
    editor.change("Correct Everywhere", [&](Project& project) { word.apply(project); });
    editor.say("“" + word.to + "” at " + std::to_string(places) + (places == 1 ? " place" : " places"));
}

void pick(Editor& editor, const std::vector<Named::FoundLine>& lines) {
    if (lines.empty()) return;
    Stretch range{lines.front().line.start, lines.front().line.end};
    for (const auto& found : lines)
        range = {std::min(range.from, found.line.start), std::max(range.to, found.line.end)};
    editor.setRange(range);
    editor.source.seek(range.from);
}

void markStart(Editor& editor) {
    if (!holdsAnything(editor)) return;
    const auto at = editor.source.time();
    const auto* clip = editor.held();
    const auto upper = editor.range() ? editor.range()->to : clip ? clip->end : at;
    editor.setRange(Stretch{at, std::max(upper, at + markGap)});
}

void markEnd(Editor& editor) {
    if (!holdsAnything(editor)) return;
    const auto at = editor.source.time();
    const auto* clip = editor.held();
    const auto lower = editor.range() ? editor.range()->from : clip ? clip->start : at;
    editor.setRange(Stretch{std::min(lower, at - markGap), at});
}

void markClip(Editor& editor) {
    if (const auto* clip = editor.held()) editor.setRange(Stretch{clip->start, clip->end});
}

void clear(Editor& editor) {
    editor.setRange(std::nullopt);
    editor.setMorePicked({});
    editor.setPicked(std::nullopt);
    editor.setTool(EditingTool::select);
}

void copyID(Editor& editor, const std::string& text) {
    emit editor.copied(QString::fromStdString(text));
    editor.say("Copied " + text);
}

CommandList table() {
    return {
        row<>("held", "The Held Clip", {},
              [](Editor& editor) -> std::optional<std::string> {
                  const auto* clip = editor.held();
                  return clip ? std::optional(OneLineJson::of(*clip)) : std::nullopt;
              }),
        row<>("clipsActedOn", "The Clips That Commands Act On", {},
              [](Editor& editor) { return OneLineJson::of(clipsActedOn(editor)); }),
        row<Kind::ListOf<Kind::ClipTag>, Kind::Maybe<Kind::Whole>>("rate", "Rate Clips", {"clips", "value"},
                                                                   rate),
        row<Kind::ClipTag, Kind::AnyText>("renameClip", "Rename Clip", {"clip", "to"}, renameClip),
        row<Kind::ClipTag>(
            "askToRename", "Ask to Rename Clip", {"clip"},
            [](Editor& editor, const UUID& id) { return OneLineJson::of(askToRename(editor, id)); }),
        row<Kind::LineTag, Kind::SourceName, Kind::AnyText>(
            "correct", "Correct Line", {"line", "on", "to"},
            [](Editor& editor, const Named::FoundLine& found, const UUID& source, const std::string& to) {
                correct(editor, found.line.id, source, to);
            }),
        row<Kind::Text, Kind::Text>("correctEverywhere", "Correct a Word Everywhere", {"from", "to"},
                                    [](Editor& editor, const std::string& from, const std::string& to) {
                                        correctEverywhere(editor, {Text::trimmed(from), Text::trimmed(to)});
                                    }),
        row<Kind::ListOf<Kind::LineTag>>("pick", "Mark Lines", {"lines"}, pick),
        row<>("markStart", "Mark Start", {}, markStart).when(holdsAnything),
        row<>("markEnd", "Mark End", {}, markEnd).when(holdsAnything),
        row<>("markClip", "Mark the Whole Clip", {}, markClip).when([](const Editor& editor) {
            return editor.held() != nullptr;
        }),
        row<>("clear", "Let Go of All", {}, clear),
        row<Kind::Text>("copyID", "Copy an ID", {"text"}, copyID),
    };
}

}
