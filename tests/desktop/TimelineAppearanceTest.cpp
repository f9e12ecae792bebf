#include "app/desktop/timeline/TimelineAppearance.h"
#include "app/desktop/timeline/TimelineLook.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace murbo;

TEST(TimelineAppearance, isKeptWithinItsRanges) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path);
    TimelineAppearance chosen;
    const QSignalSpy changes(&chosen, &TimelineAppearance::changed);
    chosen.setFilmstrip(61.4);
    chosen.setWaveform(-5);
    chosen.setQuiet(!chosen.quiet());
    chosen.setQuietLeast(3.04);
    chosen.setQuietLeast(3);
    EXPECT_EQ(changes.count(), 4) << "once for each real change";
    const auto look = TimelineLook::current();
    EXPECT_EQ(look.filmstrip, 61);
    EXPECT_EQ(look.waveform, 0);
    EXPECT_EQ(TimelineAppearance().quietLeast(), 3);
}
