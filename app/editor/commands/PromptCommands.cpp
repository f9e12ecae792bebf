#include "app/editor/commands/PromptCommands.h"

#include "app/editor/commands/Row.h"
#include "core/ai/PromptDraft.h"
#include "core/ai/PromptIdeas.h"
#include "core/ai/Said.h"
#include "core/ai/Toolkit.h"
#include "platform/base/JsonWriter.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::PromptCommands {
namespace {

constexpr std::int64_t maxPrompts = 1'000;

void put(JsonWriter& writer, const char* name, std::string_view text) {
    writer.key(name);
    writer.text(Text::repaired(text));
}

std::string kits(Editor&) {
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.beginArray();
    for (const auto& kit : Toolkit::kits()) {
        writer.beginObject();
        put(writer, "id", rawText(kit.id));
        put(writer, "name", kit.name);
        put(writer, "does", kit.does);
        put(writer, "scope", rawText(kit.scope));
        writer.key("inApp");
        writer.boolean(kit.inApp);
        writer.key("overMCP");
        writer.boolean(kit.overMCP);
        put(writer, "place", kit.place);
        put(writer, "done", kit.done);
        put(writer, "request", kit.request);
        writer.endObject();
    }
    writer.endArray();
    return writer.finish();
}

/// What the project and what is picked in it offer for the places of sample requests.
PromptIdeas::Slots places(const Editor& editor) {
    PromptIdeas::Slots found;
    const auto& project = editor.project();
    if (const auto* video = editor.video()) found.pickedVideo = video->tag();
    if (const auto* clip = editor.held()) found.pickedClip = clip->tag();
    for (const auto& id : editor.pickedClips())
        if (const auto* clip = editor.clip(id)) found.pickedClips.push_back(clip->tag());
    if (const auto* source = editor.heldSource() ? project.source(*editor.heldSource()) : nullptr)
        found.pickedSource = source->name();
    for (const auto& video : project.videos) found.videos.push_back(video.tag());
    for (const auto& clip : project.clips)
        if (clip.rating != -1) found.clips.push_back(clip.tag());
    for (const auto& source : project.sources) found.sources.push_back(source.name());
    const Said said(project);
    for (const auto& piece : said.all())
        if (!piece.note && !piece.gone) found.lines.push_back(piece.tag);
    return found;
}

std::string choosePrompts(Editor& editor, std::int64_t seed, std::int64_t count) {
    SeededRandom random(static_cast<std::uint64_t>(seed));
    const auto wanted = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, maxPrompts));
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.beginArray();
    for (const auto& text : PromptIdeas::choose(wanted, places(editor), random))
        writer.text(Text::repaired(text));
    writer.endArray();
    return writer.finish();
}

/// A picked thing as scripts give it: [name, tag].
struct ThingKind {
    using Value = PromptDraft::Thing;
    static std::string words() { return "[name, tag]"; }
    static Value read(const JsonValue& value, const Editor& editor) {
        if (value.size() != 2) throw Problem("a name and a tag are expected.");
        return {Kind::Text::read(value.element(0), editor), Kind::Text::read(value.element(1), editor)};
    }
};

std::string promptDraft(Editor&, const std::string& text, const std::vector<PromptDraft::Thing>& things) {
    PromptDraft draft{text, {}};
    draft.put(things);
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.beginObject();
    put(writer, "text", draft.text);
    put(writer, "written", draft.written());
    writer.endObject();
    return writer.finish();
}

}

CommandList table() {
    return {
        row<>("kits", "What AI Can Do", {}, kits),
        row<Kind::Whole, Kind::Whole>("choosePrompts", "Sample Requests", {"seed", "count"}, choosePrompts),
        row<Kind::AnyText, Kind::ListOf<ThingKind>>("promptDraft", "A Text for an AI App", {"text", "things"},
                                                    promptDraft),
    };
}

}
