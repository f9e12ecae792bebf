#include "core/ai/VideoChange.h"
#include "tests/ProblemOf.h"
#include "tests/ai/Footage.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;

namespace {

class VideoChangeTest : public testing::Test, protected Footage {};

}

TEST_F(VideoChangeTest, onlyTheVideoOfThatIdIsChanged) {
    const auto one = addVideo("One", {}).id;
    const auto two = addVideo("Two", {}).id;
    VideoChange::apply(project, two, "V2", [](Video& video) { video.title = "New"; });
    EXPECT_EQ(VideoChange::video(project, one, "V1").title, "One");
    EXPECT_EQ(VideoChange::video(project, two, "V2").title, "New");
    const auto gone = UUID::make();
    EXPECT_EQ(problemOf([&] { VideoChange::apply(project, gone, "V7", [](Video&) { FAIL(); }); }),
              "V7 is gone.");
    EXPECT_EQ(problemOf([&] { VideoChange::video(project, gone, "V7"); }), "V7 is gone.");
}

TEST_F(VideoChangeTest, aTrimThatJustTouchesALineDoesNotPlayIt) {
    addClip(0, {"one", "two"}); // 1-2, 3-4
    const Said said(project);
    const auto& piece = *said.tagged("C01.02");
    const auto plays = [&](const Cut& cut) {
        return VideoChange::playing(addVideo("x", {cut}), piece) != nullptr;
    };
    EXPECT_TRUE(plays(cut(0, 3.06)));
    EXPECT_FALSE(plays(cut(0, 3.05)));
    EXPECT_TRUE(plays(cut(3.94, 8)));
    EXPECT_FALSE(plays(cut(3.95, 8)));
    auto other = cut(0, 8);
    other.source = UUID::make();
    EXPECT_FALSE(plays(other));
    auto made = cut(0, 8);
    made.generator.emplace();
    EXPECT_FALSE(plays(made));
    const auto& twice = addVideo("y", {other, cut(2, 4), cut(0, 8)});
    EXPECT_EQ(VideoChange::playing(twice, piece), &twice.cuts[1]) << "the first that does";
}

TEST_F(VideoChangeTest, whatAModelGaveIsShortAndOnOneLine) {
    EXPECT_EQ(VideoChange::given(json(nullptr)), "(nothing)");
    EXPECT_EQ(VideoChange::given(json("a\nb")), "a b");
    EXPECT_EQ(VideoChange::given(json({1, "x"})), R"([1,"x"])");
    EXPECT_EQ(VideoChange::given(json(std::string(60, 'a'))), std::string(60, 'a'));
    EXPECT_EQ(VideoChange::given(json(std::string(61, 'a'))), std::string(60, 'a') + "…");
    EXPECT_EQ(VideoChange::given(json({{"at", "C01"}}), "at"), "C01");
    EXPECT_EQ(VideoChange::given(json({{"at", "C01"}}), "on"), "(nothing)");
}

TEST_F(VideoChangeTest, atMostTwentyReasonsAreGiven) {
    EXPECT_EQ(VideoChange::leftOut({}), "");
    EXPECT_EQ(VideoChange::leftOut({"a", "b"}), " Left out: a; b.");
    EXPECT_EQ(VideoChange::nothingHolds("No shot holds up: ", {"a", "b"}), "No shot holds up: a; b");
    std::vector<std::string> many(20, "x");
    EXPECT_TRUE(VideoChange::leftOut(many).ends_with("; x."));
    many.resize(22, "y");
    EXPECT_TRUE(VideoChange::leftOut(many).ends_with("; x; and 2 more."));
}
