#include "core/ai/DescribeClips.h"
#include "tests/ai/ByTag.h"
#include "tests/ai/Played.h"

#include <gmock/gmock.h>

using namespace murbo;
using nlohmann::json;
using testing::ElementsAre, testing::HasSubstr, testing::StartsWith;

TEST(DescribeClips, goesInBatchesThatARequestCanHold) {
    Played played;
    auto& clips = played.project.clips.edit();
    clips.clear();
    for (int n = 0; n < 30; ++n) clips.push_back({.start = 0, .end = 10});
    clips[25].end = 3000; // too long for any company
    Brief::Clips all;
    for (const auto& clip : clips) all.push_back(&clip);
    std::vector<std::size_t> sizes;
    for (const auto& batch : DescribeClips::batches(all)) sizes.push_back(batch.size());
    EXPECT_THAT(sizes, ElementsAre(20, 5, 1, 4));
}

TEST(DescribeClips, asksAboutTheClipsWithTheRestForBackground) {
    const Played played;
    const Said said(played.project);
    const auto ask = DescribeClips::ask({&played.project.clips[0]}, played.project, said);
    EXPECT_EQ(ask.model, Ask::Model::cheap);
    EXPECT_EQ(ask.maxTokens, 12'000);
    EXPECT_THAT(ask.messages[0].content, StartsWith("You describe clips of footage"));
    EXPECT_THAT(ask.messages[1].content,
                StartsWith("The rest of the project, for background only:\nC02 (rec.mp4 at 1:40"));
    EXPECT_THAT(ask.messages[1].content,
                HasSubstr("\n\nDescribe these:\n\n## C01, rec.mp4, 0:00 to 0:10\nC01.01"));
    const auto both = DescribeClips::ask(played.clips(), played.project, said);
    EXPECT_THAT(both.messages[1].content, StartsWith("Describe these:\n\n"));

    const Price price{0.001, 0.01};
    EXPECT_NEAR(DescribeClips::estimate(price, played.clips(), played.project, said),
                price.estimate(both.text(), 4000 + 400), 1e-9);
    const auto read = DescribeClips::read(
        R"(Here: {"clips": [{"clip": "c01", "title": "T", "summary": "S", "key_line": "C02.01"}]})",
        played.clips(), said);
    EXPECT_EQ(read.at(played.project.clips[0].id), (Clip::Summary{.title = "T", .summary = "S"}))
        << "another clip's line is none of its own";
}

TEST_F(ByTag, descriptionsAreTakenEntryByEntry) {
    const std::vector<const Clip*> clips{&project.clips[0]};
    const auto read = DescribeClips::summaries(
        json::parse(
            R"([{"clip": "c01", "title": " A fall ", "summary": "He falls.", "energy": " ", "kind": "fail",
                         "key_line": "c1.3", "unsure": 4},
                        {"clip": "C02", "title": "Other", "summary": "Other."}, {"clip": "C01", "title": "No more"}])"),
        clips, Said(project));
    ASSERT_EQ(read.size(), 1u);
    const auto& summary = read.begin()->second;
    EXPECT_EQ(
        summary,
        (Clip::Summary{
            .title = "A fall", .summary = "He falls.", .kind = "fail", .keyLine = Footage::lines()[2].id}));
    project.clips.edit()[0].summary = Clip::Summary{.title = "Before"};
    LastRuns::note(project.clips.edit()[0].runs, Kit::ID::describeClips, {});
    DescribeClips::apply(read, project, run);
    EXPECT_EQ(project.clips[0].summary, summary);
    EXPECT_EQ(LastRuns::of(project.clips[0].runs, Kit::ID::describeClips), run);
}
