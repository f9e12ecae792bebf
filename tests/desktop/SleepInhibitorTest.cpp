#include "app/desktop/services/FileChoice.h"
#include "app/desktop/services/Notice.h"
#include "app/desktop/services/SleepInhibitor.h"
#include "tests/desktop/PrivateBus.h"

#include <QDBusObjectPath>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Grants what is asked for, and notes when it is given back.
class FakeInhibit : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    uint flags = 0;
    QString reason;

    Q_SLOT QDBusObjectPath Inhibit(const QString&, uint given, const QVariantMap& options) {
        flags = given;
        reason = options["reason"].toString();
        return QDBusObjectPath("/request/1");
    }
};

class FakeRequest : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;
    Q_SLOT void Close() { ++closed; }
};

class SleepInhibitorTest : public testing::Test {
protected:
    void SetUp() override {
        if (bus.address.isEmpty()) GTEST_SKIP() << "there is no dbus-daemon";
        ASSERT_TRUE(bus.serve(portal));
        ASSERT_TRUE(
            bus.connect("portal").registerObject("/request/1", &request, QDBusConnection::ExportAllSlots));
    }

    const PrivateBus bus;
    FakeInhibit portal;
    FakeRequest request;
};

}

TEST_F(SleepInhibitorTest, asksThePortalAndGivesBackWhatItHeld) {
    SleepInhibitor awake(bus.connect("window of sleep"));
    awake.hold("Exporting Falls");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.reason.isEmpty(); }, 5000));
    EXPECT_EQ(portal.reason, "Exporting Falls");
    EXPECT_EQ(portal.flags, 4U) << "not to be suspended, and nothing else";
    QTest::qWait(100);
    EXPECT_EQ(request.closed, 0);
    awake.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return request.closed == 1; }, 5000));
}

TEST_F(SleepInhibitorTest, givesBackWhatIsGrantedAfterItWasLetGo) {
    SleepInhibitor awake(bus.connect("window that ends at once"));
    awake.hold("Exporting Falls");
    awake.hold("Exporting Hops");
    awake.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return request.closed == 1; }, 5000));
    EXPECT_EQ(portal.reason, "Exporting Falls") << "it was held already";
    awake.hold("Exporting Jumps");
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.reason == "Exporting Jumps"; }, 5000));
    awake.release();
    awake.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return request.closed > 1; }, 5000));
    QTest::qWait(50);
    EXPECT_EQ(request.closed, 2);
}

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

#include "SleepInhibitorTest.moc"
