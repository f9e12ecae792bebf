#include "core/model/CaptionPresets.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

CaptionStyle preset(const char* id, const char* base) {
    CaptionStyle style;
    style.id = id;
    if (base) style.base = base;
    return style;
}

}

TEST(CaptionPresets, theProjectsOwnReplaceThoseOfTheSameName) {
    Project project;
    auto own = preset("clean", nullptr);
    own.size = 10;
    CaptionStyle nameless;
    nameless.size = 20;
    project.styles = std::vector{nameless, preset("mine", nullptr), own};
    std::vector<std::string> ids;
    for (const auto& style : CaptionPresets::of(project)) ids.push_back(style.id.value_or("-"));
    EXPECT_EQ(ids, (std::vector<std::string>{"pop", "clean", "bold", "story", "boxed", "-", "mine"}));
    EXPECT_EQ(CaptionPresets::of(project)[1].size, 10);
    EXPECT_EQ(CaptionPresets::resolved(project, "clean").weight,
              0.56); // of pop: the built-in clean is replaced
}

TEST(CaptionPresets, everyChainEndsOnPop) {
    Project project;
    auto ring = preset("ring", "ring");
    ring.pill = "ABCDEF";
    auto top = preset("top", "story");
    top.pill = "";
    project.styles = std::vector{ring, top, preset("lost", "nowhere")};
    const auto resolved = [&](const char* id) { return CaptionPresets::resolved(project, id); };
    EXPECT_EQ(resolved("ring").pill, "ABCDEF");
    EXPECT_EQ(resolved("ring").size, 84);
    EXPECT_EQ(resolved("top").pill, "");
    EXPECT_EQ(resolved("top").bigScale, 2.2);
    EXPECT_EQ(resolved("top").fill, "FFFFFF");
    EXPECT_EQ(resolved("lost").motion, "pop");
    EXPECT_EQ(resolved("nowhere"), CaptionStyle::builtIn()[0]);
    EXPECT_EQ(CaptionPresets::resolved(project, std::nullopt), CaptionStyle::builtIn()[0]);
    EXPECT_EQ(resolved("bold").name, "Bold Keyword");
}

TEST(CaptionPresets, aProjectsOwnPopStandsOnTheBuiltIn) {
    Project project;
    auto pop = preset("pop", "bold");
    pop.size = 50;
    project.styles = std::vector{pop};
    const auto style = CaptionPresets::resolved(project, "clean");
    EXPECT_EQ(CaptionPresets::resolved(project, "pop").size, 50);
    EXPECT_EQ(CaptionPresets::resolved(project, "pop").most, 24);
    EXPECT_EQ(style.stroke, 30);
    EXPECT_EQ(style.base, "bold");
}

TEST(CaptionPresets, aVideosBaseLeavesTheProjectsStyleOut) {
    Project project;
    project.captionStyle = preset("", "clean");
    project.captionStyle->fill = "00FF00";
    Video video;
    EXPECT_EQ(CaptionPresets::style(project, video).fill, "00FF00");
    EXPECT_EQ(CaptionPresets::style(project, video).size, 62);
    video.look.emplace().captions.style.emplace().size = 40;
    EXPECT_EQ(CaptionPresets::style(project, video).fill, "00FF00");
    EXPECT_EQ(CaptionPresets::style(project, video).size, 40);
    video.look->captions.style->base = "story";
    EXPECT_EQ(CaptionPresets::style(project, video).fill, "FFFFFF");
    EXPECT_EQ(CaptionPresets::style(project, video).outline, "FF5FA2");
    EXPECT_EQ(CaptionPresets::style(project, video).size, 40);
}
