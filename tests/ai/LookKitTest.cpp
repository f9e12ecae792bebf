#include "core/ai/LookKit.h"
#include "tests/ProblemOf.h"
#include "tests/ai/Played.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::EndsWith, testing::HasSubstr, testing::Not, testing::StartsWith;

namespace {

const LookKit::Offers layouts{{.id = "stock.layout.wide", .name = "Wide", .about = "All of it"}};
const LookKit::Offers overlays{
    {.id = "stock.hearts", .name = "Hearts", .about = "Hearts rise", .seconds = 4}};

}

TEST(LookKit, tellsWhatIsOnOffer) {
    Played played;
    const Said said(played.project);
    const auto ask = LookKit::ask(played.video(), played.project, said, layouts, overlays);
    const auto& system = ask.messages[0].content;
    EXPECT_THAT(system, StartsWith("You give one vertical (9:16) video its look"));
    EXPECT_THAT(system,
                HasSubstr("talking to chat.\n- stock.layout.wide (Wide): All of it\n\nChange the framing"));
    EXPECT_THAT(
        system,
        HasSubstr("or none.\n\nOverlays you may lay on a line, at most three, only where one lifts the "
                  "moment:\n- stock.hearts (Hearts): Hearts rise\n\nReply with JSON only."));
    EXPECT_THAT(system, EndsWith("The first shot is at the first line."));
    EXPECT_THAT(
        ask.messages[1].content,
        StartsWith(
            "The video “Mine”, 10.0 s. Its lines, with when each comes on the video:\nC01.01 [0:01.0]"));
    EXPECT_THAT(LookKit::instructions(Video::Aspect::horizontal, {}, {}), Not(HasSubstr("Overlays you may")));
}

TEST(LookKit, carriesOutAllOfAnAnswerOrNothing) {
    Played played;
    auto& look = played.video().look.emplace();
    look.captions.lines.edit() = {{.line = played.line(1), .hidden = true},
                                  {.line = played.line(4), .big = true}};
    const auto before = played.project;
    const json answer = {
        {"shots",
         {{{"at", "C01.01"}, {"layout", "split"}}, {{"at", "C01.03"}, {"layout", "face"}, {"zoom", 1.2}}}},
        {"big", {"C01.03"}},
        {"overlays",
         {{{"playbook", "stock.hearts"}, {"at", "C01.04"}},
          {{"playbook", "stock.hearts"}, {"at", "C02.01"}},
          {{"playbook", "nobody's"}, {"at", "C01.01"}}}}};
    const auto words = LookKit::apply(answer, played.id(), played.project, layouts, overlays, played.run);
    EXPECT_THAT(words, HasSubstr("V1 has 2 shots."));
    EXPECT_THAT(words, EndsWith("1 overlay laid on"));
    const auto& after = *played.video().look;
    ASSERT_EQ(after.overlays.size(), 1u);
    EXPECT_EQ(after.overlays[0].at, 7);
    EXPECT_EQ(after.overlays[0].length, 3) << "no longer than the video has room";
    EXPECT_EQ(after.captions.line(played.line(2))->big, true);
    EXPECT_EQ(after.captions.line(played.line(1))->hidden, true) << "what the owner hid stays hidden";
    EXPECT_EQ(after.captions.line(played.line(4))->big, true) << "the video doesn't play it now";
    EXPECT_TRUE(LastRuns::of(played.video().runs, Kit::ID::look));

    played.project = before;
    const auto refused = [&](const json& object) {
        return problemOf(
            [&] { LookKit::apply(object, played.id(), played.project, layouts, overlays, played.run); });
    };
    EXPECT_EQ(refused(json::object()), "No look could be read from the answer; Activity has it.");
    EXPECT_THAT(refused({{"big", {"C01.03"}}, {"shots", {{{"at", "C02.01"}}}}}),
                StartsWith("No shot holds up. "));
    EXPECT_EQ(played.project, before);

    played.lines()[1].gone = true;
    LookKit::apply({{"big", {"C01.03"}}}, played.id(), played.project, layouts, overlays, played.run);
    const auto* gone = played.video().look->captions.line(played.line(1));
    EXPECT_TRUE(gone && gone->hidden == true) << "what was chosen for a line stays until that comes back";
}
