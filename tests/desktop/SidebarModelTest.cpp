#include "app/desktop/models/SidebarModel.h"
#include "tests/desktop/TimelineVideo.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(SidebarModel, countsAndPicks) {
    TimelineVideo video;
    SidebarModel sidebar(video.editor);
    EXPECT_EQ(sidebar.pickedRow(), 0);
    EXPECT_EQ(sidebar.rows()[0].title, "rec.mp4");
    EXPECT_EQ(sidebar.rows()[0].section, "Footage");
    sidebar.pick(2);
    EXPECT_EQ(sidebar.pickedRow(), 2);
    video.editor.setMissing({video.editor.project().sources[0].id});
    EXPECT_TRUE(sidebar.rows()[0].missing);
    EXPECT_EQ(sidebar.rows().back().title, "Missing") << "comes with the first that is missing";
}
