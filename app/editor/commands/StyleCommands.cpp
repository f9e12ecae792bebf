#include "app/editor/commands/StyleCommands.h"

#include "app/editor/commands/Changes.h"
#include "app/editor/commands/Row.h"
#include "core/model/CaptionPresets.h"
#include "core/playbooks/Library.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::StyleCommands {
namespace {

constexpr const char* stepName = "Change Caption Style";

/// Where the style stands that is to be changed: in the project, or in the open video's look.
std::optional<CaptionStyle>& slot(const Editor& editor, Project& project, bool ofProject) {
    if (ofProject) return project.captionStyle;
    auto& video = Changes::openVideo(editor, project);
    if (!video.look) video.look.emplace();
    return video.look->captions.style;
}

/// The id of the preset that a new style builds on: the one that is in force now.
std::optional<std::string> baseInForce(const Editor& editor, bool ofProject) {
    const auto& project = editor.project();
    if (ofProject) return project.captionStyle ? project.captionStyle->base : std::nullopt;
    return CaptionPresets::style(project, *editor.video()).base;
}

void change(const Editor& editor, Project& project, bool ofProject, const StyleChange& body) {
    CaptionStyle fresh;
    fresh.base = baseInForce(editor, ofProject);
    auto& standing = slot(editor, project, ofProject);
    auto style = standing.value_or(fresh);
    body(style);
    standing = style == CaptionStyle{} ? std::nullopt : std::optional(style);
}

bool nothingToChange(const Editor& editor, bool ofProject) {
    return !ofProject && !editor.video();
}

bool isKnown(const Project& project, const std::optional<std::string>& id) {
    const auto has = [&](const CaptionStyle& style) { return style.id == id; };
    const auto& builtIn = CaptionStyle::builtIn();
    return std::any_of(builtIn.begin(), builtIn.end(), has) ||
           std::any_of(project.styles.begin(), project.styles.end(), has);
}

void replaceOrAppend(std::vector<CaptionStyle>& styles, const CaptionStyle& style) {
    const auto same =
        std::find_if(styles.begin(), styles.end(), [&](const auto& one) { return one.id == style.id; });
    if (same == styles.end())
        styles.push_back(style);
    else
        *same = style;
}

bool isOf(const CaptionStyle& style, const std::string& id) {
    return style.id == id;
}

/// Whether a video, the project or another of its presets builds on a preset.
bool isUsed(const Project& project, const std::string& id) {
    const auto builds = [&](const std::optional<CaptionStyle>& style) { return style && style->base == id; };
    const auto ofVideo = [&](const Video& video) { return video.look && builds(video.look->captions.style); };
    return builds(project.captionStyle) || std::ranges::any_of(project.videos, ofVideo) ||
           std::ranges::any_of(project.styles,
                               [&](const CaptionStyle& style) { return !isOf(style, id) && builds(style); });
}

/// The library's presets with one of them changed or gone; the file is written only where it was there.
template <class Change>
void changeLibrary(const std::string& id, Change change) {
    auto styles = Library::styles();
    const auto found = std::ranges::find_if(styles, [&](const auto& style) { return isOf(style, id); });
    if (found == styles.end()) return;
    change(styles, found);
    Library::save(styles);
}

void refuseUnsaved(Editor& editor) {
    editor.refuse("This style comes with Murbo and stays as it is");
}

void saveInLibrary(const CaptionStyle& style) {
    auto styles = Library::styles();
    std::erase_if(styles, [&](const CaptionStyle& one) { return one.id == style.id; });
    styles.push_back(style);
    Library::save(styles);
}

}

void setCaptionStyle(Editor& editor, bool ofProject, const StyleChange& body) {
    if (nothingToChange(editor, ofProject)) return;
    editor.change(stepName, [&](Project& project) { change(editor, project, ofProject, body); });
}

void settleCaptionStyle(Editor& editor, bool ofProject, const StyleChange& body) {
    if (nothingToChange(editor, ofProject)) return;
    editor.beginDrag(stepName);
    editor.dragAndRedraw([&](Project& project) { change(editor, project, ofProject, body); });
    editor.endDragSoon(stepName);
}

void pickCaptionPreset(Editor& editor, const std::optional<CaptionStyle>& style, bool ofProject) {
    if (nothingToChange(editor, ofProject)) return;
    editor.change(stepName, [&](Project& project) {
        auto& standing = slot(editor, project, ofProject);
        standing.reset();
        if (!style) return;
        standing.emplace().base = style->id;
        if (style->id && !isKnown(project, style->id)) project.styles.edit().push_back(*style);
    });
}

void savePreset(Editor& editor, CaptionStyle style, const std::string& name) {
    auto id = Text::lowercased(name);
    std::replace(id.begin(), id.end(), ' ', '-');
    style.id = id;
    style.name = name;
    saveInLibrary(style);
    editor.group("Save Caption Style", [&] {
        editor.change("Save Caption Style",
                      [&](Project& project) { replaceOrAppend(project.styles.edit(), style); });
        setCaptionStyle(editor, false, [&](CaptionStyle& used) {
            used = {};
            used.base = id;
        });
    });
}

bool isSaved(const Editor& editor, const std::string& id) {
    const auto has = [&](const auto& styles) {
        return std::ranges::any_of(styles, [&](const auto& style) { return isOf(style, id); });
    };
    return !has(CaptionStyle::builtIn()) && (has(editor.project().styles) || has(Library::styles()));
}

void renamePreset(Editor& editor, const std::string& id, const std::string& to) {
    const auto name = Text::trimmed(to);
    if (name.empty()) return;
    if (!isSaved(editor, id)) return refuseUnsaved(editor);
    changeLibrary(id, [&](auto&, auto style) { style->name = name; });
    editor.change("Rename Caption Style", [&](Project& project) {
        for (std::size_t at = 0; at < project.styles.size(); ++at)
            if (isOf(project.styles[at], id)) project.styles.edit()[at].name = name;
    });
}

void removePreset(Editor& editor, const std::string& id) {
    if (!isSaved(editor, id)) return refuseUnsaved(editor);
    changeLibrary(id, [](auto& styles, auto style) { styles.erase(style); });
    if (isUsed(editor.project(), id))
        return editor.say("Gone from the library. This project builds on it and keeps it");
    editor.change("Remove Caption Style", [&](Project& project) {
        std::erase_if(project.styles.edit(), [&](const auto& style) { return isOf(style, id); });
    });
}

CommandList table() {
    return {
        row<Kind::Text, Kind::Text>("renamePreset", "Rename Caption Style", {"id", "to"}, renamePreset),
        row<Kind::Text>("removePreset", "Remove Caption Style", {"id"}, removePreset),
        row<Kind::Flag, Kind::Fields<CaptionStyle>>("setCaptionStyle", "Change Caption Style",
                                                    {"project", "change"}, setCaptionStyle),
        row<Kind::Flag, Kind::Fields<CaptionStyle>>("settleCaptionStyle",
                                                    "Drag a Control of the Caption Style",
                                                    {"project", "change"}, settleCaptionStyle),
        row<Kind::Maybe<Kind::StyleRecord>, Kind::Flag>("pickCaptionPreset", "Pick a Caption Preset",
                                                        {"style", "project"}, pickCaptionPreset),
        row<Kind::StyleRecord, Kind::Text>("savePreset", "Save Caption Style", {"style", "named"},
                                           savePreset),
    };
}

}
