#include "app/desktop/SingleProcess.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QLocalSocket>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

class SingleProcessTest : public testing::Test {
protected:
    SingleProcessTest() { std::filesystem::permissions(folder.path, std::filesystem::perms::owner_all); }

    const TemporaryFolder folder;
    const Environment place{"XDG_RUNTIME_DIR", folder.path};
};

}

TEST_F(SingleProcessTest, aSecondStartHandsItsWordsToTheFirst) {
    SingleProcess first;
    QSignalSpy asked(&first, &SingleProcess::asked);
    EXPECT_FALSE(first.handOver({})) << "there is nobody to hand over to";
    bool handed = false;
    std::thread second([&] { handed = SingleProcess().handOver({"/a/ภาพ.mbproj", "/b.mbproj"}); });
    EXPECT_TRUE(asked.wait(5000));
    second.join();
    EXPECT_TRUE(handed);
    EXPECT_EQ(asked[0][0].toStringList(), (QStringList{"/a/ภาพ.mbproj", "/b.mbproj"}));
}

TEST_F(SingleProcessTest, aSocketThatACrashLeftIsTakenOver) {
    folder.file("murbo-desktop");
    SingleProcess only;
    EXPECT_FALSE(only.handOver({}));
    EXPECT_TRUE(std::filesystem::is_socket(folder / "murbo-desktop"));
}

TEST_F(SingleProcessTest, answersWholeMessagesOfABearableLength) {
    SingleProcess first;
    QSignalSpy asked(&first, &SingleProcess::asked);
    first.handOver({});
    const auto connected = [&](QLocalSocket& socket, const QByteArray& bytes) {
        socket.connectToServer(QString::fromStdString((folder / "murbo-desktop").string()));
        socket.write(bytes);
        QTest::qWait(100);
    };
    QLocalSocket slow, endless, foreign;
    connected(slow, "[\"/a.mb");
    EXPECT_EQ(asked.count(), 0);
    slow.write("proj\"]\n");
    ASSERT_TRUE(asked.wait(5000));
    EXPECT_EQ(asked[0][0].toStringList(), QStringList{"/a.mbproj"});
    connected(endless, QByteArray(70000, 'x'));
    EXPECT_EQ(endless.state(), QLocalSocket::UnconnectedState);
    connected(foreign, "no list\n");
    EXPECT_EQ(foreign.readAll(), "\n") << "it is understood as: come to the front";
    ASSERT_EQ(asked.count(), 2);
    EXPECT_EQ(asked[1][0].toStringList(), QStringList());
}
