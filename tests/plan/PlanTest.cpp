#include "core/render/plan/Plan.h"
#include "tests/plan/Made.h"

#include <gtest/gtest.h>

using namespace murbo;
using Made::line;
using Made::Spoken;

namespace {

Plan plan(const Spoken& spoken) {
    return Plan::video(spoken.video, spoken.project, "Mitr, Nunito", "/p.mbproj");
}

}

TEST(Plan, knowsAllThatDrawingNeeds) {
    Spoken spoken({line(0, 4, "hidden"), line(4, 8, "seen")}, {{0, 8}});
    const Framing framing{.split = 0.3};
    Source& source = spoken.project.sources.edit().front();
    source.framing = framing;
    spoken.project.sources.edit().push_back({.path = "/footage/unused.mp4"});
    spoken.project.styles.edit().push_back({.id = "mine", .base = "boxed", .size = 40});
    spoken.project.styles.edit().push_back({.name = "without an id"});
    spoken.video.aspect = Video::Aspect::portrait;
    spoken.video.look.emplace().captions.lines.edit() = {{.line = spoken.line(0).id, .hidden = true}};

    const Plan made = plan(spoken);
    EXPECT_EQ(made.frame, (Size{1080, 1350}));
    EXPECT_EQ(made.fonts, "Mitr, Nunito");
    EXPECT_EQ(made.project, "/p.mbproj");
    EXPECT_EQ(made.sources.size(), 2);
    EXPECT_EQ(made.sources.at(spoken.source), "/footage/one.mp4");
    EXPECT_EQ(made.framing(spoken.source), framing);
    EXPECT_EQ(made.framing(UUID::make()), Framing{});
    EXPECT_EQ(made.framing({}), Framing{});
    EXPECT_EQ(made.style.size, 84) << "pop, where nothing else is said";
    EXPECT_EQ(made.presets.size(), 6);
    EXPECT_EQ(made.presets.at("mine").pill, "FFFFFF") << "resolved through its base";
    ASSERT_EQ(made.cues.size(), 1);
    EXPECT_EQ(made.cues[0].text, "seen");

    spoken.video.look->captions.on = false;
    EXPECT_TRUE(plan(spoken).cues.empty());
    spoken.video.look.reset();
    EXPECT_EQ(plan(spoken).cues.size(), 2) << "a video without a look has captions";
}

TEST(Plan, findsWhatIsOnAtATime) {
    Spoken spoken({line(0, 2, "a"), line(1, 3, "b")}, {{0, 10}});
    spoken.video.look.emplace().shots.edit() = {Made::shot(spoken.source, 0), Made::shot(spoken.source, 5)};
    const Plan made = plan(spoken);
    for (const auto& [time, at] :
         {std::pair{-1.0, 0.0}, {0, 0}, {4.999, 0}, {4.9996, 5}, {5, 5}, {99, 5}, {NAN, 0}})
        EXPECT_EQ(made.shot(time)->shot.at, at) << time;
    for (const auto& [time, text] :
         {std::pair{-0.001, ""}, {0.0, "a"}, {1.999, "a"}, {1.9996, "b"}, {2.0, "b"}, {3.0, ""}, {NAN, ""}}) {
        const CaptionCue* cue = made.cue(time);
        EXPECT_EQ(cue ? cue->text : "", text) << time;
    }
    EXPECT_EQ(plan(Spoken({}, {})).shot(0), nullptr);
}

TEST(Plan, passesOverTheHoursThatAVideoDoesNotShow) {
    constexpr int many = 200'000; // every line looked at for every cut, this would not end
    std::vector<Line> lines;
    for (int each = 0; each < many; ++each) lines.push_back(line(each * 2, each * 2 + 1.9, "word"));
    Spoken made(lines, {});
    for (int each = 0; each < many; ++each) // nearly all in pauses
        made.video.cuts.edit().push_back(Made::cut(made.source, each * 2 + 1.92, each * 2 + 1.98));
    for (int each = 0; each < 50; ++each)
        made.video.cuts.edit().push_back(Made::cut(made.source, each * 700, each * 700 + 6));
    EXPECT_EQ(plan(made).cues.size(), 50U * 3);
}
