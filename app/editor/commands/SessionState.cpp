#include "app/editor/commands/SessionState.h"

#include "app/editor/commands/PickJson.h"
#include "platform/base/Codec.h"

#include <functional>

namespace murbo::SessionState {
namespace {

/// Writes the members of one object.
class Object {
public:
    Object() { writer.beginObject(); }

    template <class T>
    void put(const char* name, const T& value) {
        writer.key(name);
        Codec::write(writer, value);
    }
    template <class T>
    void put(const char* name, const std::optional<T>& value) {
        if (value) put(name, *value);
    }
    void putBy(const char* name, const std::function<void(JsonWriter&)>& write) {
        writer.key(name);
        write(writer);
    }
    std::string finish() {
        writer.endObject();
        return writer.finish();
    }

private:
    JsonWriter writer{JsonWriter::Layout::compact};
};

std::vector<double> pair(const Stretch& stretch) {
    return {stretch.from, stretch.to};
}

std::string clipTag(const Editor& editor, const UUID& id) {
    const auto* clip = editor.clip(id);
    return clip ? clip->tag() : id.text();
}

void putHeld(Object& object, const Editor& editor) {
    if (editor.heldClip()) object.put("heldClip", clipTag(editor, *editor.heldClip()));
    if (editor.heldSource()) {
        const auto* source = editor.project().source(*editor.heldSource());
        object.put("heldSource", source ? source->name() : editor.heldSource()->text());
    }
    std::vector<std::string> clips;
    for (const auto& id : editor.pickedClips()) clips.push_back(clipTag(editor, id));
    object.put("pickedClips", clips);
    if (editor.range()) object.put("range", pair(*editor.range()));
}

void putSidebar(Object& object, const SidebarPick& sidebar) {
    if (sidebar.source)
        object.put("sidebar", std::vector<std::string>{"source", sidebar.source->text()});
    else
        object.put("sidebar", sidebar.collection);
}

void putTimeline(Object& object, const Editor& editor) {
    if (const auto pick = editor.picked())
        object.putBy("picked", [&](JsonWriter& writer) { PickJson::write(writer, *pick); });
    object.putBy("morePicked", [&](JsonWriter& writer) { PickJson::write(writer, editor.morePicked()); });
    if (const auto* video = editor.video()) object.put("openVideo", video->tag());
    object.put("tool", editor.tool());
    object.put("framing", editor.framing());
    object.put("skimming", editor.skimming());
    object.put("snapping", editor.snapping());
    object.put("zoom", editor.zoom());
    object.put("headers", editor.headers());
    object.putBy("monitoring", [&](JsonWriter& writer) {
        const auto& soloed = editor.monitoring().soloed;
        writer.beginObject();
        writer.key("soloed");
        Codec::write(writer, std::vector<Lane>(soloed.begin(), soloed.end()));
        writer.endObject();
    });
}

void putEdge(Object& object, const std::optional<TrimEdge>& edge) {
    if (!edge) return;
    object.putBy("edge", [&](JsonWriter& writer) {
        writer.beginArray();
        writer.text(edge->source.text());
        writer.number(edge->at);
        writer.endArray();
    });
}

void putPlayers(Object& object, const Editor& editor) {
    object.put("time", editor.playback.time());
    object.put("span", pair(editor.playback.span()));
    object.put("rate", editor.playback.rate());
    object.put("frameRate", editor.playback.frameRate());
    object.put("sourceTime", editor.source.time());
    object.put("sourceSpan", pair(editor.source.span()));
}

std::vector<std::string> names(const std::vector<History::Step>& steps) {
    std::vector<std::string> list;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) list.push_back(step->name);
    return list;
}

}

std::string json(const Editor& editor) {
    Object object;
    object.put("missing", std::vector<UUID>(editor.missing().begin(), editor.missing().end()));
    putSidebar(object, editor.sidebar());
    putHeld(object, editor);
    putTimeline(object, editor);
    object.put("inspecting", editor.inspecting());
    object.put("focus", editor.focus());
    object.put("inspectorTab", editor.inspectorTab());
    object.put("asking", editor.asking());
    object.put("toast", editor.toast());
    putEdge(object, editor.edge());
    object.put("problem", editor.problem());
    putPlayers(object, editor);
    object.put("undo", names(editor.history().past()));
    object.put("redo", names(editor.history().future()));
    return object.finish();
}

}
