#include "platform/text/Fonts.h"
#include "platform/text/ShapedText.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <unistd.h>

using namespace murbo;

namespace {

/// Makes this process see the fonts of one folder alone. Only before the first use of fonts.
void seeOnly(const std::string& folder) {
    const auto rules =
        std::filesystem::temp_directory_path() / ("murbo-fonts-" + std::to_string(getpid()) + ".conf");
    std::ofstream(rules) << "<fontconfig>" << (folder.empty() ? "" : "<dir>" + folder + "</dir>")
                         << "</fontconfig>";
    setenv("FONTCONFIG_FILE", rules.c_str(), 1);
    setenv("MURBO_FONTS", std::filesystem::temp_directory_path().c_str(), 1);
}

int leave(bool good) {
    std::filesystem::remove(std::getenv("FONTCONFIG_FILE"));
    std::exit(good ? 0 : 1);
}

}

// Each in a process of its own, since fonts are scanned once.
TEST(FontSetDeathTest, withoutAnyFontNothingIsDrawn) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto alone = [] {
        seeOnly("");
        const ShapedText text("Hello ครับ 😂", Fonts::font("Arial", 0.5, 40));
        leave(text.hopeless() && text.lines(100, 9).size() > 0 &&
              text.glyphs(text.lines(1e6, 9).front(), {}).empty());
    };
    EXPECT_EXIT(alone(), testing::ExitedWithCode(0), "");
}

TEST(FontSetDeathTest, oneLatinFontDrawsLatinAndSaysWhatIsMissing) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const std::string folder = "/usr/share/fonts/truetype/quicksand";
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "Quicksand is not installed.";
    const auto alone = [&] {
        seeOnly(folder);
        const ShapedText text("Hi ครับ", Fonts::font("", 0.5, 40));
        const auto glyphs = text.glyphs(text.lines(1e6, 9).front(), {});
        leave(!text.hopeless() && text.missing().size() == 3 && glyphs.size() >= 2 && glyphs[0].glyph != 0);
    };
    EXPECT_EXIT(alone(), testing::ExitedWithCode(0), "");
}
