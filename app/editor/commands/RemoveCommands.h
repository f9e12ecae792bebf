#pragma once

#include "app/editor/Editor.h"

namespace murbo {

/// Taking away what is picked on the timeline.
namespace RemoveCommands {

/// Takes away the picks whatever they are; a caption is hidden, for the words of a transcript stay.
void removePicked(Editor& editor);

/// Takes away two picks or more as one step.
void removeAllPicked(Editor& editor);

}

}
