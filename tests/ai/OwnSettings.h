#pragma once

#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

namespace murbo {

/// Settings of the test program's own, the same for all its tests: the store is opened once a process.
inline const TemporaryFolder& ownSettings() {
    static const TemporaryFolder folder;
    static const Environment config("XDG_CONFIG_HOME", folder / "config");
    static const Environment state("XDG_STATE_HOME", folder / "state");
    return folder;
}

}
