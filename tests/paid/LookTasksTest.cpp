#include "core/playbooks/Playbooks.h"
#include "tests/paid/PaidProject.h"

using namespace murbo;
namespace fs = std::filesystem;

namespace {

using json = nlohmann::json;
using LookTasks = PaidProject;

/// Whether a text holds these pieces, in this order, one starting it and one ending it.
void expectPieces(const std::string& text, const std::string& wanted) {
    const std::string gap = "…\n";
    std::size_t from = 0;
    for (std::size_t at = 0; at <= wanted.size();) {
        const auto end = std::min(wanted.find(gap, at), wanted.size());
        const auto piece = wanted.substr(at, end - at);
        const auto found = text.find(piece, from);
        EXPECT_NE(found, text.npos) << piece << "\n--- is not in ---\n" << text;
        if (at == 0) {
            EXPECT_EQ(found, 0u);
        }
        if (found == text.npos) return;
        from = found + piece.size();
        at = end + gap.size();
    }
    EXPECT_EQ(from, text.size());
}

}

TEST_F(LookTasks, aVideoGetsItsLook) {
    model.answers(json{
        {"shots",
         {{{"at", "C01.01"}, {"layout", "split"}},
          {{"at", "C01.02"}, {"layout", "stock.layout.corner"}, {"zoom", 1.3}},
          {{"at", "C02.01"}, {"layout", "face"}}}},
        {"big", {"C01.02"}},
        {"overlays",
         {{{"playbook", "stock.hook"}, {"at", "C01.02"}}, {{"playbook", "no.such"}, {"at", "C01.02"}}}}});
    const auto ran = run({"--look", package, "V1"});
    EXPECT_EQ(ran.code, 0) << ran.out;
    EXPECT_THAT(ran.out, testing::EndsWith(" laid on\n"));
    expectPieces(model.lastWords(), expected("look"));
    EXPECT_EQ(model.bodies()[0]["model"], "anthropic/claude-haiku-5.5");
    const auto video = project().videos[0];
    ASSERT_TRUE(video.look);
    ASSERT_EQ(video.look->shots.size(), 2u);
    EXPECT_EQ(video.look->shots[1].playbook, "stock.layout.corner");
    ASSERT_EQ(video.look->overlays.size(), 1u);
    EXPECT_EQ(video.look->overlays[0].at, 104);
    EXPECT_EQ(video.look->captions.lines[0].big, true);
    EXPECT_TRUE(video.runs->contains("look"));
    EXPECT_EQ(lastStep(), "Look by AI");
    EXPECT_EQ(logged(), "Look, done");
    EXPECT_TRUE(Playbooks::copy("stock.hook", video.look->overlays[0].version, package))
        << "the project carries what it shows";
    EXPECT_TRUE(Playbooks::copy("stock.layout.corner", *video.look->shots[1].version, package));
}

TEST_F(LookTasks, aVideoGetsItsSounds) {
    folder.file("Movies/Murbo/Sounds/Hits/boom.wav", "boom");
    folder.file("Movies/Murbo/Sounds/whoosh.wav", "whoosh");
    model.answers(json{{"sounds",
                        {{{"file", "Hits/boom.wav"}, {"at", "C01.02"}, {"after", 0.5}, {"volume", 0.6}},
                         {{"file", "Hits/none.wav"}, {"at", "C01.02"}}}}});
    const auto ran = run({"--sound", package, "V1"});
    EXPECT_EQ(ran.code, 0) << ran.out;
    EXPECT_EQ(model.lastWords(), expected("sound"));
    const auto sounds = project().videos[0].look->sounds;
    ASSERT_EQ(sounds.size(), 1u);
    EXPECT_EQ(sounds[0].file, "media/sounds/boom.wav");
    EXPECT_EQ(contentsOf(package / sounds[0].file), "boom");
    EXPECT_FALSE(fs::exists(package / "media/sounds/whoosh.wav"));
    EXPECT_EQ(lastStep(), "Sound by AI");
}

TEST_F(LookTasks, aReplyWithoutSoundsClearsNone) {
    folder.file("Movies/Murbo/Sounds/boom.wav", "boom");
    model.answers(json{{"sounds", "none"}});
    const auto before = projectFile();
    EXPECT_EQ(run({"--sound", package, "V1"}),
              failure("No sounds could be read from the answer; Activity has it."));
    EXPECT_EQ(projectFile(), before);
}
