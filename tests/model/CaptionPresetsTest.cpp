#include "core/model/CaptionPresets.h"

#include <gtest/gtest.h>

using namespace murbo;
using CaptionPresets::resolved;

TEST(CaptionPresets, theProjectsOwnReplaceThoseOfTheSameName) {
    Project project;
    project.styles.edit() = {{.size = 20}, {.id = "mine"}, {.id = "clean", .size = 10}};
    std::string ids;
    for (const auto& style : CaptionPresets::of(project)) ids += style.id.value_or("-") + " ";
    EXPECT_EQ(ids, "pop clean bold story boxed - mine ");
    EXPECT_EQ(CaptionPresets::of(project)[1].size, 10);
    EXPECT_EQ(resolved(project, "clean").weight, 0.56); // of pop: the built-in clean is replaced
}

TEST(CaptionPresets, everyChainEndsOnPop) {
    Project project;
    project.styles.edit() = {{.id = "ring", .base = "ring", .pill = "ABCDEF"},
                             {.id = "top", .base = "story", .pill = ""},
                             {.id = "lost", .base = "nowhere"}};
    const auto ring = resolved(project, "ring"), top = resolved(project, "top");
    EXPECT_EQ(ring.pill, "ABCDEF");
    EXPECT_EQ(ring.size, 84);
    EXPECT_EQ(top.pill, "");
    EXPECT_EQ(top.bigScale, 2.2);
    EXPECT_EQ(top.fill, "FFFFFF");
    EXPECT_EQ(resolved(project, "lost").motion, "pop");
    for (const auto& id : {std::optional<std::string>("nowhere"), {}})
        EXPECT_EQ(resolved(project, id), CaptionStyle::builtIn()[0]);

    // An own pop stands on the built-in one, and what stood on that stands on it.
    project.styles.edit() = {{.id = "pop", .base = "bold", .size = 50}};
    EXPECT_EQ(resolved(project, "pop").size, 50);
    EXPECT_EQ(resolved(project, "pop").most, 24);
    EXPECT_EQ(resolved(project, "clean").base, "bold");
}

TEST(CaptionPresets, aVideosBaseLeavesTheProjectsStyleOut) {
    Project project;
    project.captionStyle = {.base = "clean", .fill = "00FF00"};
    Video video;
    const auto told = [&] {
        const auto style = CaptionPresets::style(project, video);
        return *style.fill + " " + *style.outline + " " + std::to_string(std::lround(*style.size));
    };
    EXPECT_EQ(told(), "00FF00  62");
    video.look.emplace().captions.style.emplace().size = 40;
    EXPECT_EQ(told(), "00FF00  40");
    video.look->captions.style->base = "story";
    EXPECT_EQ(told(), "FFFFFF FF5FA2 40");
}
