#include "app/desktop/timeline/PartedRow.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;

TEST(PartedRow, theOthersMakeRoomWhereItWouldLand) {
    const TimelineVideo video;
    const auto layout = video.layout();
    const auto first = video.cut(0).id;
    const auto last = video.cut(2).id;
    PartedRow row;
    row.aim(layout, PartedRow::Landing{first, 2}, 0);
    EXPECT_TRUE(row.aside(0).empty()) << "nothing jumps";
    EXPECT_TRUE(row.moving(60));
    EXPECT_LT(row.aside(60).at(video.cut(1).id), -2);
    EXPECT_EQ(row.aside(200), (std::map<UUID, double>{{video.cut(1).id, -4}}));
    EXPECT_FALSE(row.moving(200));
    EXPECT_EQ(PartedRow::room(layout, {first, 2}), (Stretch{3, 7}));
    EXPECT_EQ(PartedRow::room(layout, {first, 3}), (Stretch{8, 12}));
    EXPECT_EQ(PartedRow::room(layout, {last, 1}), (Stretch{4, 9}));

    EXPECT_EQ(PartedRow::room(layout, {std::nullopt, 1, 2}), (Stretch{4, 6}))
        << "of what comes from elsewhere";
    EXPECT_EQ(PartedRow::room(layout, {std::nullopt, 3, 2}), (Stretch{12, 14}));

    row.aim(layout, PartedRow::Landing{last, 0}, 200);
    EXPECT_NEAR(row.aside(200).at(video.cut(1).id), -4, 1e-9) << "on from where it is";
    EXPECT_EQ(row.aside(400), (std::map<UUID, double>{{first, 5}, {video.cut(1).id, 5}}));
    row.aim(layout, std::nullopt, 400);
    EXPECT_TRUE(row.aside(600).empty());
    row.aim(layout, PartedRow::Landing{last, 3}, 600);
    EXPECT_TRUE(row.aside(800).empty()) << "in its own place";
    row.aim(layout, PartedRow::Landing{std::nullopt, 1, 2}, 800);
    EXPECT_EQ(row.aside(1000), (std::map<UUID, double>{{video.cut(1).id, 2}, {last, 2}}));
}
