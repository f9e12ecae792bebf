#include "app/desktop/SingleProcess.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

TEST(SingleProcess, aSecondStartHandsItsWordsToTheFirst) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path, std::filesystem::perms::owner_all);
    const Environment place("XDG_RUNTIME_DIR", folder.path);
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

TEST(SingleProcess, aSocketThatACrashLeftIsTakenOver) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path, std::filesystem::perms::owner_all);
    const Environment place("XDG_RUNTIME_DIR", folder.path);
    folder.file("murbo-desktop");
    SingleProcess only;
    EXPECT_FALSE(only.handOver({}));
    EXPECT_TRUE(std::filesystem::is_socket(folder / "murbo-desktop"));
}
