#pragma once

#include "app/desktop/libraries/LibraryModel.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "tests/desktop/OnWindow.h"

namespace murbo {

/// A window whose library lies in a folder of the test's, with a video that has a cut of 4 s.
class WindowOfLibrary : public WindowOfProject {
public:
    WindowOfLibrary() {
        Library::setOverride(folder / "library");
        Playbooks::dropListing();
        putIn();
    }
    ~WindowOfLibrary() { Library::setOverride(std::nullopt); }

    /// Turns to a page and waits until it is listed.
    bool turn(LibraryModel& model, Collection page) {
        editor().setSidebar({page, {}});
        return waitFor([&] { return model.emptyWords() != "Reading…"; });
    }
    static int row(const LibraryModel& model, const QString& name) {
        for (int at = 0; at < model.rowCount(); ++at)
            if (model.rows()[static_cast<std::size_t>(at)].name == name) return at;
        return -1;
    }
    const Look& look() { return *editor().video()->look; }
};

}
