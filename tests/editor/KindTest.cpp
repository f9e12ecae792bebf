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

TEST(Kind, aTextSaysSomethingAndATimeIsBounded) {
    TwoCuts lines;
    EXPECT_EQ(read<Kind::Text>(lines, R"(" a ")"), " a ");
    EXPECT_EQ(problem<Kind::Text>(lines, R"(" \n")"), "it must not be blank.");
    EXPECT_EQ(read<Kind::AnyText>(lines, R"("")"), "");
    EXPECT_EQ(read<Kind::Seconds>(lines, "1e300"), 1e9);
    EXPECT_EQ(read<Kind::Seconds>(lines, "-1e300"), -1e9);
    EXPECT_EQ(read<Kind::TimeSpan>(lines, "[2,2]"), (Stretch{2, 2}));
    EXPECT_EQ(problem<Kind::TimeSpan>(lines, "[2,1.9]"), "its end is before its start.");
    EXPECT_EQ(problem<Kind::TimeSpan>(lines, "[1,2,3]"), "two times are expected.");
}

TEST(Kind, aNameMustNameSomething) {
    TwoCuts lines;
    EXPECT_EQ(problem<Kind::ClipTag>(lines, R"("C9")"), "“C9” is not a clip of this project.");
    EXPECT_EQ(problem<Kind::VideoTag>(lines, R"("V9")"), "“V9” is not a video of this project.");
    EXPECT_EQ(problem<Kind::BookmarkTag>(lines, R"("B1")"), "“B1” is not a bookmark of this project.");
    EXPECT_EQ(problem<Kind::IdeaNumber>(lines, R"("idea 1")"), "“idea 1” is not an idea of this project.");
    EXPECT_EQ(problem<Kind::SourceName>(lines, R"("x")"), "“x” is not a source of this project.");
    EXPECT_EQ(problem<Kind::Shot>(lines, R"("shot 1")"), "“shot 1” is not a shot of this project.");
    lines.dress({25});
    EXPECT_EQ(read<Kind::AnyBlock>(lines, R"("overlay 1")"), lines.look().overlays[0].id);
    EXPECT_EQ(problem<Kind::AnyBlock>(lines, R"("cut 3")"), "“cut 3” is not a block of this project.");
    EXPECT_EQ(problem<Kind::PlaybookID>(lines, R"("stock.x")"), "“stock.x” is no playbook of the library.");
    EXPECT_EQ(Kind::Sound::words(), R"("sound 1" | "song 1", or an id)");
    EXPECT_EQ(Kind::Cut::words(), R"("cut 1", or an id)");
}

TEST(Kind, aPickIsAKindANameAndForCaptionsAPiece) {
    TwoCuts lines;
    using Kind::TimelinePick;
    const auto cut = lines.video().cuts[1].id;
    const auto said = lines.line(1).id;
    EXPECT_EQ(read<TimelinePick>(lines, R"(["cut","cut 2"])"), (Pick{Pick::Kind::cut, cut, {}}));
    EXPECT_EQ(read<TimelinePick>(lines, R"(["caption","C01.02"])"), (Pick{Pick::Kind::caption, said, {}}));
    EXPECT_EQ(read<TimelinePick>(lines, R"(["caption","C01.02",0])"), (Pick{Pick::Kind::caption, said, 0}));
    EXPECT_EQ(read<TimelinePick>(lines, R"(["caption","C01.02",null])"),
              (Pick{Pick::Kind::caption, said, {}}));
    EXPECT_EQ(problem<TimelinePick>(lines, R"(["caption","C01.02",-1])"), "a piece counts from 0.");
    EXPECT_EQ(problem<TimelinePick>(lines, R"(["cut","cut 2",0])"), "only a caption has pieces.");
    EXPECT_EQ(problem<TimelinePick>(lines, R"(["shot","cut 2"])"), "“cut 2” is not a shot of this project.");
    EXPECT_EQ(problem<TimelinePick>(lines, R"(["cut"])"), "a kind and a name are expected.");
    EXPECT_EQ(problem<TimelinePick>(lines, R"(["caption","C01.02",0,0])"), "a kind and a name are expected.");
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
