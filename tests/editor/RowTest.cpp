#include "tests/editor/Lines.h"

using namespace murbo;

TEST(Row, saysWhichArgumentIsNotRight) {
    Lines lines;
    const std::pair<const char*, const char*> cases[] = {
        {R"(["undo",1])", "There are too many arguments: none is expected."},
        {R"(["seek",1,2])", "There are too many arguments: at most 1 is expected."},
        {R"(["set","zoom",1,2])", "There are too many arguments: at most 2 are expected."},
    };
    for (const auto& [line, error] : cases)
        EXPECT_EQ(lines(line), R"({"ok":false,"error":")" + std::string(error) + "\"}") << line;
}
