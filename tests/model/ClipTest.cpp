#include "core/model/Clip.h"

#include <tuple>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Clip, isNamedForItsOwner) {
    const std::tuple<std::optional<std::string>, std::optional<std::string>, const char*> clips[] = {
        {{}, {}, "otherwise"},
        {" \t", {}, "otherwise"},
        {"Best bit", {}, "Best bit · C07"},
        {" Best bit ", " The fall ", "Best bit ·  The fall "},
        {"Best bit", "  ", "Best bit · C07"},
        {{}, " The fall ", " The fall "},
        {"", "\u00A0", "otherwise"},
    };
    for (const auto& [name, title, shown] : clips) {
        Clip clip{.number = 7, .name = name};
        if (title) clip.summary = Clip::Summary{*title, ""};
        EXPECT_EQ(clip.title("otherwise"), shown);
    }
    for (const auto& [number, tag] : {std::pair{0, "C00"}, {7, "C07"}, {10, "C10"}, {123, "C123"}})
        EXPECT_EQ(Clip{.number = number}.tag(), tag);
    EXPECT_EQ((Clip{.number = 14, .part = "a"}.tag()), "C14a");
}

TEST(Clip, holdsItsStartAndNotItsEnd) {
    const Clip clip{.start = 2, .end = 3};
    EXPECT_TRUE(clip.holds(2));
    EXPECT_FALSE(clip.holds(3));
}
