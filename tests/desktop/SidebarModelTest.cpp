#include "app/desktop/models/SidebarModel.h"
#include "tests/desktop/TimelineVideo.h"

#include <algorithm>

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
    const auto& rows = sidebar.rows();
    const auto library = std::ranges::find(rows, "Library", &SidebarRow::section);
    ASSERT_NE(library, rows.end());
    EXPECT_EQ(std::prev(library)->title, "Missing") << "comes with the first that is missing";
    EXPECT_EQ(library->title, "Layouts");
    sidebar.pick(static_cast<int>(library - rows.begin()));
    EXPECT_EQ(video.editor.sidebar().collection, Collection::layouts);
}
