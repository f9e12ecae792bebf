#include "platform/text/Fonts.h"

#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

using Names = std::vector<std::string>;

}

TEST(Fonts, weightsFollowThePlatformScale) {
    const std::vector<std::pair<double, int>> table = {
        {-1, 400},   {0, 400},    {0.3, 600}, {0.4, 700}, {0.48, 750},
        {0.56, 800}, {0.62, 900}, {1, 1000},  {7, 1000},  {std::nan(""), 400}};
    for (const auto& [weight, number] : table)
        EXPECT_EQ(Fonts::font("", weight, 84).weight, number) << weight;
}

TEST(Fonts, familiesThatAreNotInstalledCostNothing) {
    EXPECT_EQ(Fonts::font("No Such Face,, \tNoto Sans , noto color emoji", 0, 1).families,
              (Names{"Noto Sans", "noto color emoji"}));
    EXPECT_EQ(Fonts::font("", 0, 1).families, Names{});
    EXPECT_FALSE(Fonts::installed(""));
}

TEST(Fonts, theRoundedFacesGoByTheirPlainNames) {
    if (!std::filesystem::exists(std::filesystem::read_symlink("/proc/self/exe").parent_path() / "fonts"))
        GTEST_SKIP() << "The rounded faces are not fetched.";
    for (const char* name : {"Nunito", "Mitr", "M PLUS Rounded 1c"})
        EXPECT_TRUE(Fonts::installed(name)) << name;
    for (const auto& name : Fonts::families()) EXPECT_FALSE(name.starts_with("Rounded Mplus")) << name;
}
