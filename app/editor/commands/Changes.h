#pragma once

#include "app/editor/Editor.h"
#include "core/playbooks/Book.h"

namespace murbo {

/// What the changes of many commands have in common.
namespace Changes {

/// The open video within a project that is being changed. There must be one.
Video& openVideo(const Editor& editor, Project& project);

/// The video of that id, or null.
Video* video(Project& project, const UUID& id);

/// Keeps a copy of a playbook in the package, so that the project carries what it uses. A copy that can't be
/// made is no failure: the library has it.
void pin(const Editor& editor, const Book& book);

}

}
