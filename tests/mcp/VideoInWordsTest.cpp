#include "core/mcp/VideoInWords.h"
#include "tests/mcp/Calling.h"

using namespace murbo;
using testing::HasSubstr;

using VideoInWordsTest = Calling;

TEST_F(VideoInWordsTest, readsAVideoWhole) {
    auto& look = video().look.emplace();
    look.shots.edit() = {
        {.source = source(), .at = 1},
        {.source = source(), .at = 103, .layout = Shot::Layout::face, .zoom = 1.2, .move = "push"}};
    look.shots.edit().push_back({.source = UUID::make(), .at = 2}); // of footage that it doesn't play
    look.captions.lines.edit() = {{.line = lines()[0].id,
                                   .pieces = {{{.text = "so this"}, {.text = "is the boss room"}}},
                                   .big = true}};
    look.sounds.edit() = {{.file = "media/boom.wav", .source = source(), .at = 103, .volume = 0.6},
                          {.file = "media/hit.wav", .source = source(), .at = 101.5, .muted = true}};
    look.mix = Mix{.muted = {{Lane::music, Lane::video}}};
    EXPECT_EQ(text("read_video", R"({"video": " v1"})"),
              "V1 “First”, 9:16, 0:06.\n\n"
              "Cuts:\n1. C01.01 to C01.02, 3.0 s: so this is the boss room two\n"
              "2. C02.01 to C02.02, 3.0 s: over there THE BOSS\n\n"
              "Shots:\n0:00 on the video, C01.01: split\n0:05 on the video, C02.02: face, zoom 1.20, push\n"
              "not on the video: split\n\n"
              "Captions: big C01.01; hidden none\nBroken by hand:\nC01.01: so this / is the boss room\n\n"
              "Sounds:\nboom.wav at C02.02, volume 0.60\nhit.wav at C02.01 + 0.5 s, volume 0.70, muted by "
              "the owner\n\n"
              "Muted by the owner: Video, Music");
    video().look.reset();
    EXPECT_THAT(
        text("read_video", R"({"video": "V1"})"),
        testing::EndsWith("Shots:\nnone yet: all split\n\nCaptions: big none; hidden none\n\nSounds:\nnone"));
    EXPECT_EQ(problem("read_video", R"({"video": "V9"})"), "There is no video V9. The videos are V1.");
}

TEST_F(VideoInWordsTest, aMomentIsThatOfTheFirstCutThatShowsIt) {
    video().cuts.edit() = {cut(101, 104), cut(1, 6), cut(2, 6)};
    auto& look = video().look.emplace();
    look.shots.edit() = {{.source = source(), .at = 5, .zoom = 1.005, .playbook = "stock.layout.wide"},
                         {.source = source(), .at = 6, .zoom = 0.9},
                         {.source = source(), .at = 0.9996}}; // a hair before the cut that shows it
    look.sounds.edit() = {{.file = "a.wav", .source = source(), .at = 0.5},
                          {.file = "b.wav", .source = source(), .at = 3.04}};
    const auto words = VideoInWords::whole(video(), Said(project));
    EXPECT_THAT(words, HasSubstr("0:07 on the video, C01.03: stock.layout.wide\n"
                                 "not on the video, C01.03: split, zoom 0.90\n"
                                 "0:03 on the video, C01.01: split\n\n"));
    EXPECT_THAT(words, HasSubstr("a.wav at 0:00, volume 0.70\nb.wav at C01.02, volume 0.70"));
    video().cuts.edit().clear();
    EXPECT_THAT(VideoInWords::whole(video(), Said(project)), HasSubstr("0:00.\n\nCuts:\nnone yet\n"));
}

TEST_F(VideoInWordsTest, hiddenCaptionsAreNoBigOnes) {
    video().look.emplace().captions.lines.edit() = {{.line = lines()[1].id, .hidden = true},
                                                    {.line = lines()[0].id, .big = true},
                                                    {.line = UUID::make(), .big = true}};
    EXPECT_THAT(VideoInWords::whole(video(), Said(project)),
                HasSubstr("Captions: big C01.01; hidden C01.02\n"));
}

TEST_F(VideoInWordsTest, eachPartThatDiffersIsNamed) {
    const auto before = video();
    const auto changes = [&](const std::function<void(Look&)>& change) {
        auto now = before;
        change(now.look.emplace());
        return VideoInWords::changes(before, now, Said(project));
    };
    EXPECT_EQ(changes([](Look&) {}), "") << "an empty look is none";
    EXPECT_EQ(changes([](Look& look) { look.shots.edit().resize(2); }), "Shots: 2");
    EXPECT_EQ(changes([](Look& look) { look.captions.lines.edit().resize(1); }),
              "Captions: big, hidden or breaks changed");
    EXPECT_EQ(changes([](Look& look) { look.sounds.edit().resize(3); }), "Sounds: 3");
    EXPECT_EQ(changes([](Look& look) { look.overlays.edit().resize(1); }), "Overlays: 1");
    EXPECT_EQ(changes([](Look& look) {
                  look.music.edit() = {{.file = "m/a.mp3"}, {.file = "b.mp3"}};
              }),
              "Music: a.mp3, b.mp3");
    EXPECT_EQ(changes([](Look& look) { look.captions.on = false; }), "");
    auto now = before;
    now.aspect = Video::Aspect::square;
    now.title = "Now";
    EXPECT_EQ(VideoInWords::changes(before, now, Said(project)),
              "Title: “First” → “Now”\nAspect: 9:16 → 1:1");
    EXPECT_EQ(VideoInWords::changes(now, before, Said(project)),
              "Title: “Now” → “First”\nAspect: 1:1 → 9:16");
}
