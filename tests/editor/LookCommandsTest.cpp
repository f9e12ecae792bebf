#include "app/editor/commands/LookCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(LookCommands, filesThatAreAlikeForLongAreTwo) {
    TwoCuts lines;
    const auto file = lines.folder.file("cat.png").string();
    const auto keep = [&] { return lines(R"(["keepMedia",")" + file + "\",\"pictures\"]"); };
    std::string bytes(200'000, 'a');
    std::ofstream(file) << bytes;
    EXPECT_EQ(keep(), gave("\"media/pictures/cat.png\""));
    EXPECT_EQ(keep(), gave("\"media/pictures/cat.png\"")) << "it is there";
    bytes.back() = 'b';
    std::ofstream(file) << bytes;
    EXPECT_EQ(keep(), gave("\"media/pictures/cat 2.png\""));
}
