#include "app/editor/commands/CommandTable.h"
#include "platform/base/Files.h"
#include "tests/editor/Lines.h"

#include <nlohmann/json.hpp>

using namespace murbo;

TEST(CommandTable, namesEachCommandOnce) {
    std::set<std::string> names;
    for (const auto& command : CommandTable::all()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        EXPECT_FALSE(command.title.empty()) << command.name;
    }
}

TEST(Pages, theCommandsPageIsTheProgramsOwn) {
    const auto file = std::filesystem::path(MURBO_TESTS).parent_path() / "docs" / "commands.md";
    if (std::getenv("MURBO_RENEW_PAGES")) Files::writeWhole(file, CommandTable::page());
    EXPECT_EQ(contentsOf(file), CommandTable::page()) << "The page is stale: ./dev pages renews it.";
}

/// Every command with every argument of every wrong kind: an answer each time, and a project that still
/// opens.
TEST(CommandTable, noArgumentHarms) {
    Lines lines;
    lines(R"(["set","pickedClips",["C01","C02"]])", R"(["addToEnd"])", R"(["cut","face"])");
    const auto values = nlohmann::json::parse(R"([null, true, -1, 1e308, -1e308, 0.5, "", " ", "cut 1", "C01",
        "V1", [], [[]], {}, [1, 2], [2, 1], {"at": 1e308}, "C01.01", "x\u0000y", ["cut", "cut 1"], "/dev/null",
        "shot 1"])");
    int refused = 0;
    for (const auto& command : CommandTable::all()) {
        if (command.name == "wait") continue;
        for (const auto& first : values)
            for (const auto* rest : {"", ",1e308", ",\"\",{}", ",\"x\",{\"at\":-1e308,\"length\":1e308}",
                                     ",true,true,1,2,3,4,5"}) {
                const auto answer = lines("[\"" + command.name + "\"," + first.dump() + rest + "]");
                ASSERT_THAT(answer, testing::AnyOf(testing::StartsWith("{\"ok\":true"),
                                                   testing::StartsWith("{\"ok\":false,\"error\":\"")));
                refused += answer.starts_with("{\"ok\":false");
            }
    }
    EXPECT_GT(refused, 2000);
    Lines empty;
    const auto before = empty.project();
    for (const auto& command : CommandTable::all()) EXPECT_NE(empty("[\"" + command.name + "\"]"), "");
    EXPECT_EQ(empty.project(), before) << "without a video or a pick nothing is done";
    lines(R"(["closeDrag"])");
    EXPECT_FALSE(lines.document->unsaved());
    EXPECT_EQ(ProjectPackage::read(lines.package()), lines.project());
}
