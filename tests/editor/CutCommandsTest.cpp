#include "app/editor/commands/CutCommands.h"
#include "tests/editor/Lines.h"

#include <set>

#include <gtest/gtest.h>

using namespace murbo;

TEST(CutCommands, whatIsPutTwiceIsTwoCuts) {
    Lines lines;
    auto& editor = lines.editor();
    const Cut cut{.source = editor.project().sources[0].id, .start = 1, .end = 3};
    CutCommands::drop(editor, {cut}, std::nullopt);
    CutCommands::drop(editor, {cut, cut}, 0);
    std::set<UUID> ids;
    for (const auto& each : editor.video()->cuts) ids.insert(each.id);
    EXPECT_EQ(ids.size(), 3u);
}
