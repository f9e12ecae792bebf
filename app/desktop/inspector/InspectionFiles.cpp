#include "app/desktop/inspector/Inspection.h"
#include "app/desktop/inspector/RowMaker.h"
#include "app/editor/Editor.h"
#include "app/editor/KeptMedia.h"
#include "app/editor/commands/Changes.h"
#include "app/editor/commands/OverlayCommands.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/sound/SoundMix.h"
#include "platform/base/Text.h"

#include <QPointer>

// What the inspector brings in from outside the project: files that are chosen, other versions of playbooks.

namespace murbo {
namespace {

/// A chosen file once it lies in the project.
struct KeptFile {
    std::optional<std::string> path;
    std::optional<double> length; ///< seconds, of a sound
};

}

void Inspection::askFile(const QString& id) {
    const auto* asked = row(id);
    if (!asked) return;
    const bool sound = id == "replace";
    const auto title = sound ? QString("Replace “%1”").arg(shownTitle) : asked->name;
    emit fileAsked(id, sound ? "sounds" : "media", title);
}

/// It is copied on a thread: a recording takes a while.
void Inspection::takeFile(const QString& id, const QString& path) {
    const auto picks = picked();
    if (!row(id) || picks.empty() || path.isEmpty()) return;
    const bool sound = id == "replace";
    const bool music = picks[0].kind == Pick::Kind::music;
    auto kept = std::make_shared<KeptFile>();
    const std::filesystem::path file = path.toStdString();
    const auto work = [kept, file, sound, package = editor.package(),
                       folder = std::string(music   ? "music"
                                            : sound ? "sounds"
                                                    : "pictures")] {
        if (sound) kept->length = SoundMix::lengthOf(file);
        if (!sound || kept->length) kept->path = KeptMedia::keep(file, folder, package);
    };
    const auto name = Text::repaired(file.filename().string());
    const auto then = [self = QPointer(this), kept, id, picks, name, file, sound, busy = editor.busy()] {
        if (!self) return;
        auto& session = self->editor;
        if (sound && !kept->length) return session.refuse(name + " can't be read");
        if (!kept->path) return session.refuse(KeptMedia::failure(file));
        if (self->picked() != picks) return session.refuse("Something else was picked meanwhile");
        const auto place = RowMaker::said(*kept->path);
        if (sound)
            self->replaceSound(place, *kept->length);
        else
            self->set(id, place);
    };
    editor.background.start(work, then);
}

void Inspection::replaceSound(const QString& place, double length) {
    const auto* skip = row("skip");
    const bool beginsAfter = skip && skip->current.toDouble() >= length;
    editor.change(shownKind == "music" ? "Replace Song" : "Replace Sound", [&](Project& project) {
        write(project, "file", place);
        if (beginsAfter) write(project, "skip", {});
    });
}

void Inspection::updateBook(const Pick& pick, const std::string& id) {
    if (pick.kind == Pick::Kind::overlay) return OverlayCommands::updateOverlay(editor, pick.id);
    const auto book = Playbooks::find(id);
    if (!book) return;
    Changes::pin(editor, *book);
    editor.change("Update Playbook", [&](Project& project) {
        write(project, "version", static_cast<qlonglong>(book->version()));
    });
}

}
