#include "app/desktop/footage/DroppedFiles.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(DroppedFiles, arePutWhereTheyAreFor) {
    const auto files =
        DroppedFiles::sorted({"/x/a.MP4", "/x/b.PNG", "/x/c.wav", "/x/d", "/x/e.csv", "/x/f.mbplay"});
    EXPECT_EQ(files.footage, (QStringList{"/x/a.MP4", "/x/d", "/x/e.csv"}));
    EXPECT_EQ(files.pictures, QStringList{"/x/b.PNG"});
    EXPECT_EQ(files.sounds, QStringList{"/x/c.wav"});
    EXPECT_EQ(files.playbooks, QStringList{"/x/f.mbplay"});
}
