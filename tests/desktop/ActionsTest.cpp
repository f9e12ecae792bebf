#include "app/desktop/Actions.h"
#include "app/editor/commands/CommandRun.h"
#include "app/editor/commands/CommandTable.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Actions, eachHasANameOfItsOwnAndWords) {
    std::set<std::string> ids;
    for (const auto& action : Actions::all()) {
        EXPECT_TRUE(ids.insert(action.id).second) << action.id;
        EXPECT_FALSE(Actions::title(action).empty()) << action.id;
        if (!action.line.empty()) {
            EXPECT_FALSE(CommandRun::title(action.line).empty());
        }
    }
}

TEST(Actions, everyEditingCommandStandsInAMenu) {
    for (const auto name : rawTexts(Command{})) {
        const auto* action = Actions::find("key." + std::string(name));
        ASSERT_TRUE(action) << name;
        EXPECT_FALSE(action->menu.empty()) << name;
        EXPECT_FALSE(Actions::keys(*action).empty()) << name;
    }
}

/// Commands that take no arguments and change something: a menu or the palette must have each.
TEST(Actions, whatNeedsNoArgumentIsWithinReach) {
    // These read, or are what the players, drags and AI views do by themselves.
    const std::set<std::string> others{
        "closeDrag",    "unfinished",       "writeHistory", "state",           "held",
        "clipsActedOn", "offered",          "offeredCuts",  "pickedCut",       "timelinePicks",
        "removePicked", "removeAllPicked",  "picksInWords", "askAboutPicks",   "playheadOnSource",
        "playPause",    "source.playPause", "endScrub",     "source.endScrub", "useStandardKeys",
        "removeCut",    "transcribeHeld",   "beginDrag",    "notesFromFrames", "kits"};
    std::set<std::string> lines;
    for (const auto& action : Actions::all()) lines.insert(action.line);
    const std::map<std::string, std::string> byKey{
        {"markStart", "key.markStart"},   {"markEnd", "key.markEnd"},         {"markClip", "key.markClip"},
        {"addToEnd", "key.addToEnd"},     {"insertAtPlayhead", "key.insert"}, {"punch", "key.punch"},
        {"dropClipMark", "key.clipMark"}, {"dropBookmark", "key.bookmark"}};
    std::string unreached;
    for (const auto& command : CommandTable::all()) {
        if (!command.arguments.empty() || others.contains(command.name)) continue;
        const auto key = byKey.find(command.name);
        const bool reached = lines.contains("[\"" + command.name + "\"]") ||
                             (key != byKey.end() && Actions::find(key->second));
        if (!reached) unreached += command.name + " ";
    }
    EXPECT_EQ(unreached, "");
}
