#include "app/desktop/ActionSearch.h"
#include "app/desktop/Actions.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(ActionSearch, findsWhatIsMeantFirst) {
    EXPECT_EQ(ActionSearch::find("split").front()->id, "split");
    EXPECT_EQ(ActionSearch::find("duplicate v").front()->id, "duplicateVideo");
    EXPECT_TRUE(ActionSearch::find("qqqqq").empty());
    EXPECT_LT(*ActionSearch::distance("Split at Playhead", "play"),
              *ActionSearch::distance("Display", "play"));
    EXPECT_FALSE(ActionSearch::distance("Split", "splits"));
}
