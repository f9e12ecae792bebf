#include "app/desktop/viewer/HeldFootage.h"

namespace murbo {

HeldFootage::HeldFootage(Editor& session) : editor(session) {
    connect(&editor, &Editor::heldClipChanged, this, &HeldFootage::hold);
    connect(&editor, &Editor::heldSourceChanged, this, &HeldFootage::hold);
    connect(&editor, &Editor::missingChanged, this, &HeldFootage::changed);
    connect(&editor, &Editor::sourceFailed, this, &HeldFootage::fail);
    connect(&editor, &Editor::edgeChanged, this, &HeldFootage::followEdge);
    connect(&editor.source, &Playback::sourceChanged, this, &HeldFootage::hold);
    connect(&editor.source, &Playback::timeChanged, this, &HeldFootage::placeChanged);
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
    return editor.source.skimmed().value_or(editor.source.time());
}

void HeldFootage::hold() {
    failure.clear();
    emit changed();
    emit placeChanged();
}

void HeldFootage::fail(const UUID& source, const QString& words) {
    const auto* footage = held();
    if (!footage || footage->id != source) return;
    failure = words;
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
    before.show(editor.edge(), editor.project());
    after.show(editor.edgeAfter(), editor.project());
    emit edgeChanged();
}

}
