#include "app/desktop/services/FileChoice.h"
#include "app/desktop/services/Notice.h"
#include "app/desktop/services/SleepInhibitor.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace murbo;

TEST(SleepInhibitor, withoutABusEverythingSaysNoAndNothingBreaks) {
    FileChoice choice; // the tests have no bus of a session
    QSignalSpy unavailable(&choice, &FileChoice::unavailable);
    choice.choose("file", "Choose");
    ASSERT_TRUE(unavailable.count() == 1 || unavailable.wait(8000));
    SleepInhibitor awake;
    awake.hold("Exporting");
    EXPECT_TRUE(awake.isHeld());
    QTest::qWait(50);
    awake.release();
    EXPECT_FALSE(awake.isHeld());
    Notice::show("Murbo", "Exported");
}
