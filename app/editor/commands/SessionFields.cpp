#include "app/editor/commands/SessionFields.h"

#include "app/editor/commands/Row.h"
#include "app/editor/playback/PreviewVolume.h"

namespace murbo::SessionFields {
namespace {

template <class K, class Set>
Settable field(const std::string& name, Set set) {
    return {name, K::words(), Row::isMaybe<K>, [set](Editor& editor, const JsonValue& line) {
                set(editor, Row::read<K>(editor, line, 2, "value"));
            }};
}

/// A field with a setter of its own.
template <class K, class T>
Settable field(const std::string& name, void (EditorFields::*set)(T)) {
    return field<K>(name,
                    [set](Editor& editor, typename K::Value value) { (editor.*set)(std::move(value)); });
}

struct Sidebar {
    using Value = SidebarPick;
    static std::string words() { return Kind::OneOf<Collection>::words() + R"( | ["source", name])"; }
    static Value read(const JsonValue& value, const Editor& editor) {
        if (!value.isList()) return {Kind::OneOf<Collection>::read(value, editor), {}};
        if (value.size() != 2 || value.element(0).text() != "source")
            throw Problem("it is one of " + words() + ".");
        return {Collection::sources, Kind::SourceName::read(value.element(1), editor)};
    }
};

struct Zoom {
    using Value = double;
    static std::string words() { return "number above 0"; }
    static Value read(const JsonValue& value, const Editor&) {
        const auto zoom = value.number();
        if (!(zoom > 0) || zoom > 1e6) throw Problem("a number above 0 is expected.");
        return zoom;
    }
};

struct Solo {
    using Value = Monitoring;
    static std::string words() { return R"({"soloed": [lane, …]}, or the lanes alone)"; }
    static Value read(const JsonValue& value, const Editor& editor) {
        const auto member = value.isObject() ? value.member("soloed") : std::optional(value);
        if (!member) throw Problem("“soloed” is missing.");
        const auto lanes = Kind::ListOf<Kind::OneOf<Lane>>::read(*member, editor);
        return {{lanes.begin(), lanes.end()}};
    }
};

struct EdgeKind {
    using Value = TrimEdge;
    static std::string words() { return "[source, seconds]"; }
    static Value read(const JsonValue& value, const Editor& editor) {
        if (value.size() != 2) throw Problem("a source and a time are expected.");
        return {Kind::SourceName::read(value.element(0), editor),
                Kind::Seconds::read(value.element(1), editor)};
    }
};

using MaybeId = std::optional<UUID>;

std::vector<Settable> made() {
    using Kind::Maybe;
    return {
        field<Maybe<Kind::ClipTag>>("heldClip",
                                    [](Editor& editor, const MaybeId& clip) { editor.holdClip(clip); }),
        field<Maybe<Kind::SourceName>>(
            "heldSource", [](Editor& editor, const MaybeId& source) { editor.holdSource(source); }),
        field<Maybe<Kind::VideoTag>>(
            "openVideo", [](Editor& editor, const MaybeId& video) { editor.openOnTimeline(video); }),
        field<Kind::ListOf<Kind::ClipTag>>("pickedClips", &EditorFields::setPickedClips),
        field<Maybe<Kind::TimeSpan>>("range", &EditorFields::setRange),
        field<Maybe<Kind::TimelinePick>>("picked", &EditorFields::setPicked),
        field<Kind::ListOf<Kind::TimelinePick>>("morePicked", &EditorFields::setMorePicked),
        field<Sidebar>("sidebar", &EditorFields::setSidebar),
        field<Kind::OneOf<Inspecting>>("inspecting", &EditorFields::setInspecting),
        field<Kind::OneOf<EditingTool>>("tool", &EditorFields::setTool),
        field<Kind::Flag>("framing", &EditorFields::setFraming),
        field<Kind::Flag>("skimming", &EditorFields::setSkimming),
        field<Kind::Flag>("snapping", &EditorFields::setSnapping),
        field<Zoom>("zoom", &EditorFields::setZoom),
        field<Solo>("monitoring", [](Editor& editor, const Monitoring& solo) { editor.setMonitoring(solo); }),
        field<Kind::Flag>("headers", &EditorFields::setHeaders),
        field<Kind::OneOf<Viewer>>("focus", &EditorFields::setFocus),
        field<Kind::OneOf<InspectorTab>>("inspectorTab", &EditorFields::setInspectorTab),
        field<Kind::AnyText>("asking", &EditorFields::setAsking),
        field<Maybe<Kind::Text>>("toast", &EditorFields::setToast),
        field<Maybe<EdgeKind>>("edge", &EditorFields::setEdge),
        field<Kind::Number>("previewVolume",
                            [](Editor&, double level) { PreviewVolume::standard().setLevel(level); }),
        field<Kind::Flag>("previewMuted",
                          [](Editor&, bool muted) { PreviewVolume::standard().setMuted(muted); }),
    };
}

}

const std::vector<Settable>& all() {
    static const std::vector<Settable> fields = made();
    return fields;
}

EditorCommand command() {
    EditorCommand command{
        "set",
        "Set a Field",
        {{"field", "a field's name", false}, {"value", "a value of the field's kind", true}},
        {}};
    command.run = [](Editor& editor, const JsonValue& line) -> std::optional<std::string> {
        const auto name = Row::read<Kind::Text>(editor, line, 1, "field");
        Row::checkCount(line, 2);
        for (const auto& field : all())
            if (field.name == name) {
                field.set(editor, line);
                return {};
            }
        throw Problem("“" + name + "” is no field that can be set.");
    };
    return command;
}

}
