#include "core/ai/Toolkit.h"
#include "tests/editor/Lines.h"

#include <nlohmann/json.hpp>

using namespace murbo;

namespace {

nlohmann::json value(const std::string& answer) {
    return nlohmann::json::parse(answer).at("value");
}

}

TEST(PromptCommands, sampleRequestsFitTheProject) {
    Lines lines;
    const auto all = value(lines(R"(["choosePrompts",7,100])"));
    EXPECT_GT(all.size(), 5u);
    for (const auto& text : all) {
        EXPECT_EQ(text.get<std::string>().find("{"), std::string::npos) << text;
        EXPECT_EQ(text.get<std::string>().find("V1"), std::string::npos) << "there is no video";
    }
    EXPECT_EQ(value(lines(R"(["choosePrompts",7,100])")), all);
    EXPECT_EQ(value(lines(R"(["choosePrompts",7,3])")).size(), 3u);
    EXPECT_EQ(value(lines(R"(["choosePrompts",7,-1])")).size(), 0u);
    lines(R"(["set","heldClip","C02"])");
    for (const auto& text : value(lines(R"(["choosePrompts",1,100])")))
        EXPECT_EQ(text.get<std::string>().find("read C01 and"), std::string::npos)
            << "C02 is picked: " << text;
}

TEST(PromptCommands, aDraftNamesThingsAndIsWrittenByTheirTags) {
    Lines lines;
    EXPECT_EQ(
        value(lines(R"(["promptDraft","Compare",[["Boss","C01"],["Boss Fight","V2"],["Boss","C03"]]])")),
        (nlohmann::json{{"text", "Compare “Boss”, “Boss Fight”, “Boss” (C03)"},
                        {"written", "Compare C01, V2, C03"}}));
}

TEST(PromptCommands, theKitsAreReadOut) {
    Lines lines;
    const auto kits = value(lines(R"(["kits"])"));
    ASSERT_EQ(kits.size(), 11u);
    EXPECT_EQ(kits[0]["id"], "transcribe");
    EXPECT_EQ(kits[2]["scope"], "stretch");
    EXPECT_EQ(kits[10]["inApp"], false);
    for (std::size_t at = 0; at < kits.size(); ++at) EXPECT_EQ(kits[at]["does"], Toolkit::kits()[at].does);
}
