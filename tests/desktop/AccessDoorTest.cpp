#include "app/desktop/access/AccessDoor.h"
#include "tests/Environment.h"
#include "tests/desktop/WindowOfProject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>

#include <gtest/gtest.h>

using namespace murbo;

TEST(AccessDoor, isThereOnlyWhereItIsAskedForAndShowsWhatIsInTheWindows) {
    MURBO_NEEDS_FFMPEG();
    EXPECT_FALSE(AccessDoor().open());
    WindowOfProject shown;
    const auto address = (shown.folder / "door").string();
    const Environment asked(AccessDoor::variable, address);
    const AccessDoor door;
    ASSERT_TRUE(door.open());
    QLocalSocket socket;
    socket.connectToServer(QString::fromStdString(address));
    QTest::mouseMove(&shown.window(), {300, 200});
    socket.write("\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return socket.canReadLine(); }, 5000));
    const auto answer = QJsonDocument::fromJson(socket.readLine()).object();
    const auto nodes = answer["items"].toArray();
    const auto pointer = answer["pointer"].toArray();
    EXPECT_EQ(QPointF(pointer[0].toDouble(), pointer[1].toDouble()),
              shown.window().mapToGlobal(QPointF(300, 200)));
    QStringList names;
    for (const auto& node : nodes)
        names.append(node.toObject()["role"].toString() + " " + node.toObject()["name"].toString());
    EXPECT_TRUE(names.contains("Button Play")) << names.join("\n").toStdString();
    EXPECT_TRUE(names.contains("List Timeline"));
    socket.disconnectFromServer();
    QTest::qWait(20);
}
