#include "app/editor/commands/SessionState.h"
#include "tests/editor/TwoCuts.h"

#include <nlohmann/json.hpp>

using namespace murbo;
using json = nlohmann::json;

namespace {

json state(Lines& lines) {
    return json::parse(SessionState::json(lines.editor()));
}

}

TEST(SessionState, aFreshSessionLeavesOutWhatIsNot) {
    TwoCuts lines;
    lines(R"(["seek",0])");
    const auto now = state(lines);
    for (const auto* field : {"heldClip", "heldSource", "range", "picked", "edge", "problem", "toast"})
        EXPECT_FALSE(now.contains(field)) << field;
    EXPECT_EQ(now["sidebar"], json({"source", lines.rec().text()}));
    EXPECT_EQ(now["missing"].size(), 2u);
    EXPECT_EQ(now["openVideo"], "V1");
    for (const auto* list : {"pickedClips", "morePicked", "undo"})
        EXPECT_EQ(now[list], json::array()) << list;
    EXPECT_EQ(now["monitoring"], json::parse(R"({"soloed":[]})"));
    EXPECT_EQ(now["span"], json({0.0, 20.0}));
    EXPECT_EQ(now["sourceSpan"], json({0.0, 0.0}));
    EXPECT_EQ(now["rate"], 0);
    EXPECT_EQ(now["framing"], false);
    EXPECT_EQ(now["frameRate"], 30);
}

TEST(SessionState, eachFieldStandsUnderItsName) {
    TwoCuts lines;
    const auto cut = lines.video().cuts[0].id.text();
    const auto said = lines.line(1).id.text();
    struct Field {
        const char* name;
        std::string set;
        std::string shown; ///< where it is another JSON
    };
    const std::vector<Field> fields{
        {"heldSource", "\"cam.mp4\""},
        {"heldClip", "\"C02\""},
        {"pickedClips", R"(["C03","C01"])"},
        {"range", "[1.0,2.0]"},
        {"picked", R"(["caption","C01.02",1])", R"(["caption",")" + said + "\",1]"},
        {"morePicked", R"([["cut","cut 1"]])", R"([["cut",")" + cut + "\"]]"},
        {"sidebar", "\"favourites\""},
        {"inspecting", "\"timeline\""},
        {"tool", "\"blade\""},
        {"framing", "true"},
        {"skimming", "false"},
        {"snapping", "false"},
        {"headers", "false"},
        {"zoom", "2.5"},
        {"monitoring", R"(["music"])", R"({"soloed":["music"]})"},
        {"focus", "\"source\""},
        {"inspectorTab", "\"ask\""},
        {"asking", "\"shorter\""},
        {"toast", "\"hello\""},
        {"edge", R"(["cam.mp4",7])", "[\"" + lines.cam().text() + "\",7.0]"}};
    for (const auto& field : fields)
        EXPECT_EQ(lines(R"(["set",")" + std::string(field.name) + "\"," + field.set + "]"), fine)
            << field.name;
    lines(R"(["seek",4])", R"(["source.seek",45])");
    const auto now = state(lines);
    for (const auto& field : fields)
        EXPECT_EQ(now[field.name], json::parse(field.shown.empty() ? field.set : field.shown)) << field.name;
    EXPECT_EQ(now["time"], 4);
    EXPECT_EQ(now["sourceTime"], 45);
    EXPECT_EQ(now["sourceSpan"], json({40.0, 50.0}));
    for (const std::string field :
         {"heldClip", "heldSource", "range", "picked", "toast", "edge", "openVideo"}) {
        EXPECT_EQ(lines("[\"set\",\"" + field + "\",null]"), fine);
        EXPECT_FALSE(state(lines).contains(field)) << field << " is let go";
    }
}

TEST(SessionState, stepsStandTheNextOneFirst) {
    TwoCuts lines;
    lines(R"(["rename","V1","Two"])", R"(["rate",["C01"],1])", R"(["cut","face"])", R"(["undo"])");
    lines(R"(["undo"])");
    EXPECT_EQ(state(lines)["undo"], json::array({"Rename Video"}));
    EXPECT_EQ(state(lines)["redo"], json({"Favourite", "Cut to Face"}));
}
