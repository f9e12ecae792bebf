#pragma once

#include "app/editor/commands/ShotCommands.h"
#include "tests/desktop/OnWindow.h"

namespace murbo {

/// A window on a video of one cut, with a shot at its start that is picked.
class PickedShot : public WindowOfProject {
public:
    PickedShot() {
        putIn();
        settle(100);
        ShotCommands::cut(editor(), Shot::Layout::split);
        editor().setInspecting(Inspecting::timeline);
        settle(100);
    }
    const Shot& shot() { return editor().video()->look->shots[0]; }
};

}
