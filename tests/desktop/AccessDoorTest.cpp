#include "app/desktop/access/AccessDoor.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

using namespace murbo;

/// What it gives of the windows is what every scenario reads.
TEST(AccessDoor, isThereOnlyWhereItIsAskedFor) {
    EXPECT_FALSE(AccessDoor().open());
    const TemporaryFolder folder;
    const Environment asked(AccessDoor::variable, folder / "door");
    const AccessDoor door;
    ASSERT_TRUE(door.open());
    QQuickWindow window;
    window.setTitle("A window");
    window.show();
    QTest::mouseMove(&window, {12, 34});
    QLocalSocket socket;
    socket.connectToServer(qEnvironmentVariable(AccessDoor::variable));
    const auto answerTo = [&](const char* words) {
        socket.write(words);
        EXPECT_TRUE(QTest::qWaitFor([&] { return socket.canReadLine(); }));
        return QJsonDocument::fromJson(socket.readLine()).object();
    };
    EXPECT_EQ(answerTo("?\n")["items"].toArray()[0].toObject()["name"], "A window");
    const auto at = window.mapToGlobal(QPoint(12, 34));
    EXPECT_EQ(answerTo("?\n")["pointer"], (QJsonArray{at.x(), at.y()}));
    window.hide();
    EXPECT_EQ(answerTo("?\n")["items"].toArray().size(), 0);
}
