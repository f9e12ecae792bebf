#include "app/editor/commands/Changes.h"

#include "core/playbooks/Playbooks.h"
#include "platform/base/Problem.h"

namespace murbo::Changes {

Video* video(Project& project, const UUID& id) {
    for (std::size_t at = 0; at < project.videos.size(); ++at)
        if (project.videos[at].id == id) return &project.videos.edit()[at];
    return nullptr;
}

Video& openVideo(const Editor& editor, Project& project) {
    auto* open = editor.openVideo() ? video(project, *editor.openVideo()) : nullptr;
    if (!open) throw Problem("No video is open.");
    return *open;
}

void pin(const Editor& editor, const Book& book) {
    if (!editor.package()) return;
    try {
        Playbooks::copy(book, *editor.package());
    } catch (const std::exception&) {
        return;
    }
}

}
