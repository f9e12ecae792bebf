#include "app/desktop/viewer/HeldFootage.h"

#include "app/editor/playback/PlayerItem.h"

namespace murbo {

HeldFootage::HeldFootage(Editor& session) : editor(session) {
    connect(&editor, &Editor::heldClipChanged, this, &HeldFootage::hold);
    connect(&editor, &Editor::heldSourceChanged, this, &HeldFootage::hold);
    connect(&editor, &Editor::missingChanged, this, &HeldFootage::changed);
    connect(&editor, &Editor::said, this, &HeldFootage::take);
    connect(&editor, &Editor::edgeChanged, this, &HeldFootage::followEdge);
    connect(&editor.source, &Playback::sourceChanged, this, &HeldFootage::hold);
    connect(&editor.source, &Playback::timeChanged, this, &HeldFootage::placeChanged);
}

HeldFootage::~HeldFootage() {
    opening.finish();
}

const Source* HeldFootage::held() const {
    const auto* clip = editor.held();
    const auto id = clip ? std::optional(clip->source) : editor.heldSource();
    return id ? editor.project().source(*id) : nullptr;
}

QString HeldFootage::state() const {
    const auto* footage = held();
    if (!footage) return "empty";
    if (editor.missing().contains(footage->id)) return "missing";
    if (!failure.isEmpty()) return "failed";
    return editor.source.source() == footage->id && editor.source.isLoaded() ? "ready" : "loading";
}

QString HeldFootage::path() const {
    const auto* footage = held();
    return footage ? QString::fromStdString(footage->path) : "";
}

QString HeldFootage::words() const {
    return failure;
}

QString HeldFootage::source() const {
    const auto* footage = held();
    return footage ? QString::fromStdString(footage->id.text()) : "";
}

double HeldFootage::at() const {
    if (state() == "loading") return editor.held() ? editor.held()->start : 0;
    return editor.source.skimmed().value_or(editor.source.time());
}

QString HeldFootage::edgeSource() const {
    return editor.edge() ? QString::fromStdString(editor.edge()->source.text()) : "";
}

double HeldFootage::edgeAt() const {
    return editor.edge() ? editor.edge()->at : 0;
}

void HeldFootage::hold() {
    failure.clear();
    emit changed();
    emit placeChanged();
}

/// The session says in a toast what it could not open; here the words stay.
void HeldFootage::take(const QString& said) {
    const auto* footage = held();
    if (!footage) return;
    const auto start = QString::fromStdString(footage->name()) + " could not be played. ";
    if (!said.startsWith(start) || state() == "ready") return;
    failure = said.mid(start.size());
    emit changed();
}

void HeldFootage::tryAgain() {
    const auto clip = editor.heldClip();
    const auto source = editor.heldSource();
    editor.holdClip(std::nullopt);
    editor.holdSource(std::nullopt);
    editor.holdSource(source);
    editor.holdClip(clip);
}

void HeldFootage::followEdge() {
    const auto edge = editor.edge();
    const auto* footage = edge ? editor.project().source(edge->source) : nullptr;
    if (footage && openingEdge != footage->id) openEdge(*footage);
    if (footage && edges.source() == footage->id) edges.seek(edge->at);
    emit edgeChanged();
}

void HeldFootage::openEdge(const Source& footage) {
    openingEdge = footage.id;
    const auto item = std::make_shared<std::optional<PlayerItem>>();
    const auto open = [item, footage] {
        try {
            *item = PlayerItem::footage(footage);
        } catch (const std::exception&) {
            item->reset(); // its still stays in the place of a picture
        }
    };
    opening.start(open, [this, item, id = footage.id] {
        if (openingEdge != id || !*item) return;
        edges.load(std::move(**item), edgeAt());
        edges.setSource(id);
        followEdge();
    });
}

}
