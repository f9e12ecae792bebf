#include "app/editor/commands/Kind.h"
#include "tests/ProblemOf.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

template <class K>
typename K::Value read(TwoCuts& lines, const std::string& text) {
    const auto json = Json::parse(text);
    return K::read(json.root(), lines.editor());
}

template <class K>
std::string problem(TwoCuts& lines, const std::string& text) {
    return problemOf([&] { read<K>(lines, text); });
}

}

TEST(Kind, aCutShowsFootageThatIsThere) {
    TwoCuts lines;
    const auto cut = [&](const std::string& source, double start, double end, const char* more = "") {
        return problem<Kind::CutRecord>(lines, R"({"id":")" + UUID::make().text() + R"(","source":")" +
                                                   source + R"(","start":)" + std::to_string(start) +
                                                   R"(,"end":)" + std::to_string(end) + more + "}");
    };
    const std::string wrongTimes = "a cut runs from its start to a later end.";
    const auto rec = lines.rec().text();
    EXPECT_EQ(cut(rec, 1, 2), "");
    EXPECT_EQ(cut(rec, 2, 2), wrongTimes);
    EXPECT_EQ(cut(rec, 1, 2e9), wrongTimes);
    EXPECT_EQ(cut(rec, -2e9, 2), wrongTimes);
    EXPECT_EQ(cut(UUID::make().text(), 1, 2), "the cut's source is not in this project.");
    EXPECT_EQ(cut(UUID::make().text(), 0, 2, R"(,"generator":{"playbook":"p","version":1})"), "");
}

TEST(Kind, aPathIsWholeAndAStyleAnObject) {
    TwoCuts lines;
    EXPECT_EQ(read<Kind::File>(lines, R"("/a/../b/c")"), "/b/c");
    EXPECT_TRUE(read<Kind::File>(lines, R"("c")").is_absolute());
    EXPECT_EQ(problem<Kind::File>(lines, R"("/a\u0000b")"), "that is no path.");
    EXPECT_EQ(problem<Kind::StyleRecord>(lines, "[]"), "an object is expected.");
    EXPECT_EQ(read<Kind::StyleRecord>(lines, R"({"size":40})").size, 40);
    EXPECT_EQ(problem<Kind::OneOf<EditingTool>>(lines, R"("saw")"),
              R"(it is one of "select" | "trim" | "blade" | "hand".)");
}

TEST(Kind, fieldsAreAllReadBeforeAnyIsSet) {
    TwoCuts lines;
    Overlay overlay{.playbook = "p", .at = 1, .length = 2, .mute = true};
    const auto id = overlay.id;
    read<Kind::Fields<Overlay>>(lines, R"({"at":3,"mute":null})")(overlay);
    EXPECT_EQ(overlay, (Overlay{.id = id, .playbook = "p", .source = overlay.source, .at = 3, .length = 2}));
    EXPECT_EQ(problem<Kind::Fields<Overlay>>(lines, R"({"at":null})"), "“at” needs a value.");
    EXPECT_EQ(problem<Kind::Fields<Overlay>>(lines, R"({"id":"x"})"), "there is no field “id” to set.");
    EXPECT_EQ(problem<Kind::Fields<Overlay>>(lines, R"({"size":1})"), "there is no field “size” to set.");
    EXPECT_NE(problem<Kind::Fields<Overlay>>(lines, R"({"at":"x"})"), "");
}
