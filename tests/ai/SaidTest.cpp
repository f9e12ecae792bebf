#include "Footage.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;

namespace {

class SaidTest : public testing::Test, protected Footage {
protected:
    SaidTest() {
        addClip(0, {"one", "two", "three", "four"}); // 1-2, 3-4, 5-6, 7-8
        addClip(100, {"five", "six"});               // 101-102, 103-104
        notes().push_back({.start = 7, .end = 8.6, .text = "a white screen"});
    }

    std::vector<Cut> cuts(const char* text) const { return Said(project).cuts(json::parse(text)); }
    static std::vector<std::pair<double, double>> times(const std::vector<Cut>& cuts) {
        std::vector<std::pair<double, double>> all;
        for (const auto& cut : cuts) all.emplace_back(cut.start, cut.end);
        return all;
    }
};

using Spans = std::vector<std::pair<double, double>>;

}

TEST(Tag, isReadInAllSpellingsOfModels) {
    for (const auto& [given, standard] : std::map<std::string, std::string>{{"C3.07", "C03.07"},
                                                                            {" c03.7 ", "C03.07"},
                                                                            {"C14.n01", "C14.n1"},
                                                                            {"c14az.3", "C14az.03"},
                                                                            {"C103.123", "C103.123"}})
        EXPECT_EQ(Said::tag(given), standard) << given;
    for (const auto* bad : {"", "C3", "V3.1", "C.1", "C3.", "C3.x", "C3.n", "C3.-1", "C3_.1", "C3.1.2",
                            "Cé.1", "C3.+1", "C99999999999999999999.1"})
        EXPECT_EQ(Said::tag(bad), std::nullopt) << bad;
}

TEST_F(SaidTest, cutsRunFromALineToALineOfOneClip) {
    EXPECT_EQ(
        times(cuts(
            R"([{"from": "C01.01", "to": "c1.3"}, {"from": "C02.01", "to": "C02.01", "role": "payoff"}])")),
        (Spans{{1, 6}, {101, 102}}));
    EXPECT_EQ(times(cuts(R"([{"from": "C01.04", "to": "C01.n1"}])")), (Spans{{7, 8.6}}));
    for (const auto* bad :
         {R"([{"from": "C01.01", "to": "C02.01"}])", R"([{"from": "C01.03", "to": "C01.01"}])",
          R"([{"from": "C01.09", "to": "C01.09"}])", R"([{"from": 3, "to": "C01.01"}])", R"(["C01.01"])",
          R"({"from": "C01.01", "to": "C01.02"})", R"([{"from": "C01.01"}])", "null"})
        EXPECT_TRUE(cuts(bad).empty()) << bad;
    const std::set<UUID> second{project.clips[1].id};
    EXPECT_TRUE(Said(project).cuts(json::parse(R"([{"from": "C01.01", "to": "C01.02"}])"), &second).empty());
}

TEST_F(SaidTest, aLineThatIsGoneEndsNoCutButMayLieInOne) {
    lines()[1].gone = true;
    EXPECT_TRUE(cuts(R"([{"from": "C01.02", "to": "C01.03"}])").empty());
    EXPECT_EQ(times(cuts(R"([{"from": "C01.01", "to": "C01.03"}])")), (Spans{{1, 6}}));
    EXPECT_TRUE(Said(project).holding(lines()[1].text).empty()) << "nor is it found by its words";
    EXPECT_TRUE(Said(project).of(lines()[1].id)) << "but it is by its id";
}

TEST_F(SaidTest, aCutTooShortToBeMeantIsNone) {
    lines()[0].end = 1.29;
    EXPECT_TRUE(cuts(R"([{"from": "C01.01", "to": "C01.01"}])").empty());
    lines()[0].end = 1.31;
    EXPECT_EQ(cuts(R"([{"from": "C01.01", "to": "C01.01"}])").size(), 1u);
}

TEST_F(SaidTest, aTrimThatJustTouchesALineDoesNotPlayIt) {
    const Said said(project);
    const auto ends = said.ends(cut(1.96, 5.04));
    ASSERT_TRUE(ends);
    EXPECT_EQ(ends->first->tag + ends->last->tag, "C01.02C01.02");
    EXPECT_FALSE(said.ends(cut(2.1, 2.9)));
}

TEST_F(SaidTest, aLongLineIsNearAndPlayedBehindManyShortOnes) {
    addClip(200, {"a", "b", "c"}).end = 260; // 201-202, 203-204, 205-206
    notes().push_back({.start = 200.5, .end = 240, .text = "all along"});
    const Said said(project);
    EXPECT_EQ(said.nearest(220, source()).piece->text, "all along");
    EXPECT_EQ(said.nearest(220, source()).distance, 0);
    EXPECT_EQ(said.nearest(250, source()).piece->text, "all along");
    const auto played = said.played(cut(215, 220));
    ASSERT_EQ(played.size(), 1u);
    EXPECT_EQ(played[0]->text, "all along");
    EXPECT_EQ(said.played(cut(203.5, 204)).size(), 2u);
    lines().back().gone = true;
    notes().back().end = 201;
    const Said less(project);
    EXPECT_EQ(less.nearest(205.5, source()).piece->text, "b") << "what is gone is near nothing";
    EXPECT_FALSE(Said(Project()).nearest(1, source()).piece);
}

TEST_F(SaidTest, cutsOfTheSameLinesKeepTheOwnersTrims) {
    auto trimmed = cut(0.7, 6.4);
    trimmed.muted = true;
    trimmed.role = "build";
    const Said said(project);
    const auto made = said.cuts(json::parse(
        R"([{"from": "C01.01", "to": "C01.03", "role": ""}, {"from": "C01.01", "to": "C01.02", "role": "setup"}])"));
    const auto kept = said.keepingTrims(made, List<Cut>({trimmed}));
    auto expected = trimmed;
    expected.id = made[0].id;
    EXPECT_EQ(kept, (std::vector{expected, made[1]}));
    auto called = made;
    called[0].role = "payoff";
    expected.role = "payoff";
    EXPECT_EQ(said.keepingTrims(called, List<Cut>({trimmed})), (std::vector{expected, made[1]}))
        << "a role that is given counts";
}

TEST_F(SaidTest, generatedCutsStayWithTheFootageAfterThem) {
    const auto title = [](const char* id) { return Cut::generated(id, 1, std::nullopt, 2); };
    const auto opening = title("opening");
    const auto between = title("between");
    const auto last = title("last");
    List<Cut> old({opening, cut(1, 2), between, cut(5, 6), last});
    const Said said(project);
    const auto order = [&](const std::vector<Cut>& cuts) {
        std::string text;
        for (const auto& one : said.keepingGenerators(cuts, old))
            text += (one.generator ? one.generator->playbook : said.ends(one)->first->tag) + " ";
        return text;
    };
    EXPECT_EQ(order({cut(5, 6), cut(1, 2)}), "opening between C01.03 C01.01 last ");
    EXPECT_EQ(order({cut(101, 102)}), "opening C02.01 between last ");
    old.edit()[3] = cut(2.1, 2.9);
    EXPECT_EQ(order({cut(5, 6), cut(1, 2)}), "opening C01.03 C01.01 between last ")
        << "nothing said after it";
}

TEST_F(SaidTest, overlappingClipsNameALineAfterTheLaterOne) {
    project.clips.edit().push_back({.number = 7, .part = "Z", .source = source(), .start = 2.5, .end = 4.5});
    project.sources.edit().push_back(project.sources[0]); // as a broken file may have it
    const Said said(project);
    ASSERT_TRUE(said.piece("c7z.1")) << "a part in capitals is found all the same";
    EXPECT_EQ(said.piece("c7z.1")->text, "two");
    EXPECT_EQ(said.piece("C07Z.01")->tag, "C07Z.01");
    std::string tags;
    for (const auto* piece : said.inClip(project.clips[0].id)) tags += piece->tag + " ";
    EXPECT_EQ(tags, "C01.01 C01.03 C01.04 C01.n1 ") << "a note after the line that it begins with";
}
