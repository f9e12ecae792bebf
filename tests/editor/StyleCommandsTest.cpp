#include "app/editor/commands/StyleCommands.h"
#include "core/playbooks/Library.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

const std::string step = "Change Caption Style";

std::optional<CaptionStyle> own(TwoCuts& lines) {
    return lines.look().captions.style;
}

}

TEST(StyleCommands, theProjectsAndTheVideosStyleAreTwo) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["setCaptionStyle",true,{"base":"bold","size":50}])"), stepped(step));
    EXPECT_EQ(lines.project().captionStyle, (CaptionStyle{.base = "bold", .size = 50}));
    EXPECT_FALSE(lines.video().look);
    EXPECT_EQ(lines(R"(["setCaptionStyle",false,{"fill":"FF0000"}])"), stepped(step));
    EXPECT_EQ(own(lines), (CaptionStyle{.base = "bold", .fill = "FF0000"}))
        << "it builds on what was in force";
    lines(R"(["setCaptionStyle",false,{"size":70}])");
    EXPECT_EQ(own(lines), (CaptionStyle{.base = "bold", .size = 70, .fill = "FF0000"}));
    EXPECT_EQ(lines.project().captionStyle->size, 50);
    lines(R"(["setCaptionStyle",true,{"size":null,"base":null}])");
    EXPECT_FALSE(lines.project().captionStyle) << "one that says nothing is none";
    lines(R"(["setCaptionStyle",false,{"size":null,"base":null,"fill":null}])");
    EXPECT_FALSE(own(lines));
}

TEST(StyleCommands, withoutAVideoOnlyTheProjectHasOne) {
    Lines lines;
    for (const auto* line :
         {R"(["setCaptionStyle",false,{"size":50}])", R"(["settleCaptionStyle",false,{"size":50}])",
          R"(["pickCaptionPreset",{"id":"bold"},false])"})
        EXPECT_EQ(lines(line), fine) << line;
    EXPECT_FALSE(lines.editor().unfinished());
    EXPECT_EQ(lines(R"(["setCaptionStyle",true,{"size":50}])"), stepped(step));
}

TEST(StyleCommands, aControlIsDraggedAndIsOneStep) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["settleCaptionStyle",true,{"size":50}])"), fine);
    EXPECT_EQ(lines(R"(["settleCaptionStyle",true,{"size":60}])"), fine);
    EXPECT_EQ(lines.project().captionStyle->size, 60);
    EXPECT_EQ(lines.editor().unfinished(), step);
    EXPECT_EQ(lines(R"(["closeDrag"])"), stepped(step));
    EXPECT_EQ(lines.steps(), TwoCuts::Names{step});
}

TEST(StyleCommands, aPresetReplacesAndAnUnknownOneComesAlong) {
    TwoCuts lines;
    lines(R"(["setCaptionStyle",false,{"size":70}])");
    EXPECT_EQ(lines(R"(["pickCaptionPreset",{"id":"bold","size":90},false])"), stepped(step));
    EXPECT_EQ(own(lines), (CaptionStyle{.base = "bold"}));
    EXPECT_TRUE(lines.project().styles.empty()) << "the program has it";
    EXPECT_EQ(lines(R"(["pickCaptionPreset",{"id":"neon","name":"Neon","size":90},true])"), stepped(step));
    EXPECT_EQ(lines.project().captionStyle, (CaptionStyle{.base = "neon"}));
    lines(R"(["pickCaptionPreset",{"id":"neon","size":91},false])");
    ASSERT_EQ(lines.project().styles.size(), 1u);
    EXPECT_EQ(lines.project().styles[0].size, 90);
    EXPECT_EQ(lines(R"(["pickCaptionPreset",null,false])"), stepped(step));
    EXPECT_FALSE(own(lines));
    EXPECT_TRUE(lines.project().captionStyle);
}

TEST(StyleCommands, aSavedPresetIsRenamedInLibraryAndProject) {
    TwoCuts lines;
    lines(R"(["savePreset",{"size":70},"Own"])", R"(["savePreset",{"size":80},"Other"])");
    EXPECT_EQ(lines(R"(["renamePreset","own"," Mine "])"), stepped("Rename Caption Style"));
    for (const auto& styles : {*lines.project().styles, Library::styles()}) {
        ASSERT_EQ(styles.size(), 2u);
        EXPECT_EQ(styles[0].name, "Mine");
        EXPECT_EQ(styles[0].id, "own") << "what builds on it finds it";
        EXPECT_EQ(styles[1].name, "Other");
    }
    lines(R"(["pickCaptionPreset",{"id":"neon","name":"Neon"},true])", R"(["renamePreset","neon","Glow"])");
    EXPECT_EQ(lines.project().styles[2].name, "Glow");
    EXPECT_EQ(Library::styles().size(), 2u) << "it was the project's alone";
    const auto before = lines.project();
    EXPECT_EQ(lines(R"(["removePreset","bold"])"), did("This style comes with Murbo and stays as it is"));
    EXPECT_EQ(lines(R"(["renamePreset","bold","x"])"), did("This style comes with Murbo and stays as it is"));
    EXPECT_EQ(lines(R"(["removePreset","nobody"])"), did("This style comes with Murbo and stays as it is"));
    EXPECT_EQ(lines.project(), before);
}

TEST(StyleCommands, aPresetThatSomethingBuildsOnStaysInTheProject) {
    const std::string kept = "Gone from the library. This project builds on it and keeps it";
    for (const auto* user : {"video", "project", "preset", "nobody"}) {
        TwoCuts lines;
        lines(R"(["savePreset",{"size":70},"Own"])"); // the video uses it now
        const std::string who = user;
        if (who != "video") lines(R"(["pickCaptionPreset",null,false])");
        if (who == "project") lines(R"(["pickCaptionPreset",{"id":"own"},true])");
        if (who == "preset") {
            lines(R"(["savePreset",{"base":"own"},"Second"])", R"(["pickCaptionPreset",null,false])");
        }
        const bool used = who != "nobody";
        EXPECT_EQ(lines(R"(["removePreset","own"])"), used ? did(kept) : stepped("Remove Caption Style"))
            << who;
        const auto has = [](const auto& styles) { return !styles.empty() && styles[0].id == "own"; };
        EXPECT_EQ(has(lines.project().styles), used) << who;
        EXPECT_FALSE(has(Library::styles())) << who;
    }
}

TEST(StyleCommands, aSavedPresetIsInLibraryProjectAndVideo) {
    TwoCuts lines;
    lines(R"(["setCaptionStyle",false,{"size":70}])");
    EXPECT_EQ(lines(R"(["savePreset",{"size":70,"base":"bold"},"My Own Style"])"),
              stepped("Save Caption Style"));
    const CaptionStyle saved{.id = "my-own-style", .name = "My Own Style", .base = "bold", .size = 70};
    EXPECT_EQ(Library::styles(), std::vector{saved});
    EXPECT_EQ(lines.project().styles[0], saved);
    EXPECT_EQ(own(lines), (CaptionStyle{.base = "my-own-style"}));
    EXPECT_EQ(lines.steps(), (TwoCuts::Names{step, "Save Caption Style"}));
    lines(R"(["savePreset",{"size":80},"Other"])", R"(["savePreset",{"size":75},"my own STYLE"])");
    ASSERT_EQ(lines.project().styles.size(), 2u);
    EXPECT_EQ(lines.project().styles[0].size, 75) << "in its place";
    ASSERT_EQ(Library::styles().size(), 2u);
    EXPECT_EQ(Library::styles()[1].name, "my own STYLE");
}
