#include "core/mcp/MCPPermissions.h"
#include "tests/Approved.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

using Permission = MCPPermissions::Permission;
using Decision = MCPPermissions::Decision;
using Preset = MCPPermissions::Preset;

const MCPTool& tool(const char* name) {
    return *MCPTool::named(name);
}

const Date now = Date() + std::chrono::hours(1000);

}

TEST(MCPPermissions, areAsApprovedForEachPresetAndTool) {
    const std::map<Decision, std::string> words{
        {Decision::run, "runs"}, {Decision::ask, "is asked for"}, {Decision::refuse, "is refused"}};
    std::string text;
    const auto tell = [&](const std::string& heading, const MCPPermissions& permissions) {
        text += heading + ": " + permissions.stored() + "\n";
        if (const auto preset = permissions.preset())
            text += std::string(MCPPermissions::title(*preset)) + "\n";
        for (const auto& one : MCPTool::all())
            text += "  " + one.title() + " " + words.at(permissions.decide(one, now)) + "\n";
    };
    tell("Out of the box", {});
    MCPPermissions permissions;
    for (const auto preset :
         {Preset::allowAll, Preset::recommended, Preset::askBeforeChanges, Preset::readOnly}) {
        permissions.use(preset);
        tell("Chosen", permissions);
    }
    permissions.set(Permission::ask, tool("overview"));
    tell("One more set", permissions);
    permissions.set(Permission::allow, tool("overview"));
    tell("And back", permissions);
    expectApproved("mcp/approved/MCPPermissions.txt", text);
}

TEST(MCPPermissions, onlyWhatDiffersIsKept) {
    MCPPermissions permissions;
    permissions.set(Permission::allow, tool("overview"));
    EXPECT_TRUE(permissions.changed.empty());
    permissions.use(Preset::readOnly);
    permissions.set(Permission::allow, tool("set_cuts"));
    EXPECT_EQ(permissions.chosen, Preset::readOnly);
    EXPECT_EQ(permissions.preset(), std::nullopt);
    permissions.use(Preset::recommended);
    EXPECT_TRUE(permissions.changed.empty());
}

TEST(MCPPermissions, aGrantHoldsTenMinutesAndLiftsNoOff) {
    MCPPermissions permissions;
    const auto& write = tool("write_playbook");
    permissions.allowForTenMinutes(write, now);
    EXPECT_EQ(permissions.decide(write, now + std::chrono::seconds(599)), Decision::run);
    EXPECT_EQ(permissions.decide(write, now + std::chrono::seconds(600)), Decision::ask);
    permissions.set(Permission::off, write);
    EXPECT_EQ(permissions.decide(write, now), Decision::refuse);
    permissions.use(Preset::allowAll);
    EXPECT_EQ(permissions.decide(write, now + std::chrono::hours(1)), Decision::run);
}

TEST(MCPPermissions, areStoredWithoutTheGrants) {
    MCPPermissions permissions;
    EXPECT_EQ(permissions.stored(), R"({"changed":{}})");
    permissions.use(Preset::askBeforeChanges);
    const auto again = MCPPermissions::read(permissions.stored());
    EXPECT_EQ(again, permissions);
    permissions.allowForTenMinutes(tool("set_cuts"), now);
    EXPECT_EQ(MCPPermissions::read(permissions.stored()), again);
    for (const auto* bad : {"", "[]", R"({"changed": {"set_cuts": "maybe"}})", R"({"chosen": "allowAll"})"})
        EXPECT_EQ(MCPPermissions::read(bad), MCPPermissions()) << bad;
    EXPECT_EQ(MCPPermissions::read(R"({"changed": {"gone_tool": "off"}})").changed.size(), 1u);
}
