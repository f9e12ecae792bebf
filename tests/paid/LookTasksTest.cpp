#include "tests/paid/PaidProject.h"

using namespace murbo;
namespace fs = std::filesystem;

using json = nlohmann::json;
using LookTasks = PaidProject;

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
