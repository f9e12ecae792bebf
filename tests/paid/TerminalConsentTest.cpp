#include "tests/paid/PaidProject.h"
#include "tests/paid/Terminal.h"

using namespace murbo;

namespace {

using json = nlohmann::json;

class TerminalConsent : public PaidProject {
protected:
    /// On a terminal, with this typed at the question. Standard output goes to the file "out".
    TerminalRun typing(const std::string& typed, const std::string& words) const {
        return onTerminal("env " + environment() + " " + quoted(MURBO_PROGRAM) + " " + words + " >" +
                              quoted(folder / "out"),
                          typed);
    }
    std::string out() const { return contentsOf(folder / "out"); }
    std::size_t requests() const { return model.bodies().size(); }
};

}

TEST_F(TerminalConsent, askOnATerminalWhatItMayCost) {
    const auto words = "--look " + quoted(package) + " V1";
    const auto refused = typing("n\n", words);
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.shown, testing::MatchesRegex("Look\nAbout [0-9]+¢, from your OpenRouter key, on "
                                                     "anthropic/claude-haiku-5.5.\nGo\\? \\[y/N\\] n\n"));
    EXPECT_EQ(out(), "");
    EXPECT_EQ(logged(), "");
    EXPECT_EQ(model.priceLists(), 1);
    for (const auto* no : {"\n", "yep\n", "\x04"}) EXPECT_EQ(typing(no, words).code, 1);
    EXPECT_EQ(typing("\x03", words).code, 1) << "Ctrl-C at the question";
    EXPECT_EQ(logged(), "");
    EXPECT_EQ(requests(), 0u);

    model.answers(json{{"big", {"C01.01"}}});
    const auto agreed = typing("Yes\n", words);
    EXPECT_EQ(agreed.code, 0) << out();
    EXPECT_THAT(agreed.shown, testing::EndsWith("Yes\nLook\n")) << "the job's label";
    EXPECT_NE(out(), "");
    EXPECT_EQ(model.priceLists(), 1) << "once a day is enough";
}
