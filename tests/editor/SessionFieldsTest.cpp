#include "app/editor/commands/SessionFields.h"
#include "app/editor/playback/PreviewVolume.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

std::string set(Lines& lines, const std::string& field, const std::string& value) {
    return lines(R"(["set",")" + field + "\"," + value + "]");
}

}

TEST(SessionFields, switchesTurnTheirOwn) {
    Lines lines;
    auto& editor = lines.editor();
    const auto now = [&] {
        return std::vector<bool>{editor.skimming(), editor.snapping(), editor.headers()};
    };
    for (const bool on : {false, true})
        for (const auto* field : {"skimming", "snapping", "headers"}) {
            auto expected = now();
            expected[field[1] == 'k' ? 0 : field[1] == 'n' ? 1 : 2] = on;
            set(lines, field, on ? "true" : "false");
            EXPECT_EQ(now(), expected) << field << on;
        }
    auto& volume = PreviewVolume::standard();
    set(lines, "previewVolume", "0.25");
    set(lines, "previewMuted", "true");
    EXPECT_EQ(volume.level(), 0.25);
    EXPECT_TRUE(volume.muted());
    set(lines, "previewMuted", "false");
    set(lines, "previewVolume", "7");
    EXPECT_EQ(volume.volume(), 1);
}

TEST(SessionFields, whatDoesNotFitIsNamed) {
    Lines lines;
    EXPECT_EQ(set(lines, "size", "1"), refused("“size” is no field that can be set."));
    EXPECT_EQ(set(lines, "zoom", "0"), refused("“value” is not right: a number above 0 is expected."));
    EXPECT_EQ(set(lines, "zoom", "1000000"), fine);
    EXPECT_EQ(set(lines, "zoom", "1000001"), refused("“value” is not right: a number above 0 is expected."));
    EXPECT_EQ(set(lines, "tool", "null"),
              refused(R"(“value” is missing: \"select\" | \"trim\" | \"blade\" | \"hand\".)"));
    EXPECT_EQ(set(lines, "framing", "true,1"),
              refused("There are too many arguments: at most 2 are expected."));
    EXPECT_EQ(set(lines, "edge", "[1]"), refused("“value” is not right: a source and a time are expected."));
    EXPECT_EQ(set(lines, "monitoring", "{}"), refused("“value” is not right: “soloed” is missing."));
    EXPECT_EQ(set(lines, "monitoring", R"({"soloed":["video","music"]})"), fine);
    EXPECT_EQ(lines.editor().monitoring().soloed, (std::set{Lane::video, Lane::music}));
}

TEST(SessionFields, theSidebarTakesACollectionOrOneSource) {
    Lines lines;
    const auto& source = lines.project().sources[1].id;
    EXPECT_EQ(set(lines, "sidebar", R"(["source","cam.mp4"])"), fine);
    EXPECT_EQ(lines.editor().sidebar(), (SidebarPick{Collection::sources, source}));
    for (const auto* value :
         {R"(["sources","cam.mp4"])", R"(["source"])", R"(["source","cam.mp4",1])", "\"cupboard\""})
        EXPECT_TRUE(set(lines, "sidebar", value)
                        .starts_with(refused("“value” is not right: it is one of ").substr(0, 60)))
            << value;
    EXPECT_EQ(lines.editor().sidebar().source, source);
}
