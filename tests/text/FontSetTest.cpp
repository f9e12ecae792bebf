#include "platform/text/Fonts.h"
#include "platform/text/ShapedText.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <unistd.h>

using namespace murbo;

namespace {

std::filesystem::path place() {
    return std::filesystem::temp_directory_path() / ("murbo R&D <fonts> " + std::to_string(getpid()));
}

/// Makes this process see the fonts of two folders alone, the system's and the program's own. Only before the
/// first use of fonts.
void seeOnly(const std::string& installed, const std::string& own = "") {
    std::filesystem::create_directories(place());
    if (!installed.empty()) std::filesystem::create_directory_symlink(installed, place() / "installed");
    const std::string written =
        std::filesystem::temp_directory_path().string() + "/murbo R&amp;D &lt;fonts> ";
    std::ofstream(place() / "rules") << "<fontconfig><dir>" << written << getpid()
                                     << "/installed</dir></fontconfig>";
    setenv("FONTCONFIG_FILE", (place() / "rules").c_str(), 1);
    setenv("MURBO_FONTS", own.empty() ? place().c_str() : own.c_str(), 1);
}

int leave(bool good) {
    std::filesystem::remove_all(place());
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
    const auto alone = [](const std::string& installed, const std::string& own) {
        seeOnly(installed, own);
        const ShapedText text("Hi ครับ", Fonts::font("", 0.5, 40));
        const auto glyphs = text.glyphs(text.lines(1e6, 9).front(), {});
        leave(!text.hopeless() && text.missing().size() == 3 && glyphs.size() >= 2 && glyphs[0].glyph != 0);
    };
    EXPECT_EXIT(alone(folder, ""), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(alone("", folder), testing::ExitedWithCode(0), "");
}
