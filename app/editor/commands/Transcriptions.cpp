#include "app/editor/commands/Transcriptions.h"

#include "app/editor/Editor.h"

#include <algorithm>

namespace murbo {
namespace {

bool is(const SourceStretch& stretch, const UUID& source, const Stretch& range) {
    return stretch.source == source && stretch.range == range;
}

}

Transcriptions::Transcriptions(Editor& editor) : QObject(&editor) {}

Transcriptions& Transcriptions::of(Editor& editor) {
    auto* made = editor.findChild<Transcriptions*>({}, Qt::FindDirectChildrenOnly);
    return made ? *made : *new Transcriptions(editor); // a child of the session, which deletes it
}

bool Transcriptions::isHearing(const UUID& source, const Stretch& range) const {
    return heard && is(*heard, source, range);
}

const Transcriptions::Failure* Transcriptions::failure(const UUID& source, const Stretch& range) const {
    const auto found =
        std::ranges::find_if(failed, [&](const Failure& each) { return is(each.stretch, source, range); });
    return found == failed.end() ? nullptr : &*found;
}

void Transcriptions::begin(const SourceStretch& stretch) {
    std::erase_if(failed,
                  [&](const Failure& each) { return is(each.stretch, stretch.source, stretch.range); });
    heard = stretch;
    emit changed();
}

void Transcriptions::end(const std::optional<Failure>& failure) {
    heard.reset();
    if (failure) failed.push_back(*failure);
    emit changed();
}

}
