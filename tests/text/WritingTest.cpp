#include "platform/text/FontChoice.h"
#include "platform/text/Fonts.h"
#include "platform/text/ShapedText.h"
#include "platform/text/Unicode.h"
#include "tests/Approved.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(Writing, textsAreDividedAndLaidOutAsApproved) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The fonts that come with the program are not here.";
    std::string all;
    for (std::string text : linesOf("text/approved/texts.txt")) {
        for (auto at = text.find("\\n"); at != text.npos; at = text.find("\\n")) text.replace(at, 2, 1, '\n');
        all += fmt::format("“{}”\n  characters {}\n  words {}\n  lines {}\n  “{}” “{}”{}\n", text,
                           Unicode::characterEnds(text), Unicode::wordEnds(text), Unicode::lineEnds(text),
                           Unicode::upper(text), Unicode::trimmed(text),
                           Unicode::isOnlyEmoji(text) ? " only emoji" : "");
        for (const char* family : {"", "Noto Serif, Quicksand"}) {
            const auto font = Fonts::font(family, 0.5, 80);
            const auto choice = FontChoice::choose(text, font);
            all += fmt::format("  {}:", choice.language);
            for (const auto& run : choice.runs)
                all += fmt::format(" {}–{} {} {}", run.from, run.to, run.family, run.weight);
            const ShapedText shaped(text, font);
            all += fmt::format("\n    {:.1f} wide, {:.1f} up, {:.1f} down, missing {}\n", shaped.width(),
                               shaped.ascent(), shaped.descent(),
                               std::vector<std::uint32_t>(shaped.missing().begin(), shaped.missing().end()));
            for (const double width : {100.0, 300.0, 700.0}) {
                all += fmt::format("    in {}:", width);
                for (const auto& line : shaped.lines(width, 5)) {
                    const auto glyphs = shaped.glyphs(line, {10, 20});
                    all += fmt::format(" {}–{} {:.1f}", line.from, line.to, line.width);
                    if (!glyphs.empty())
                        all += fmt::format(" ({} glyphs, {:.1f} of {} to {:.1f} of {})", glyphs.size(),
                                           glyphs.front().pen.x, glyphs.front().at, glyphs.back().pen.x,
                                           glyphs.back().at);
                }
                all += "\n";
            }
        }
    }
    expectApproved("text/approved/laid.txt", all);
}
