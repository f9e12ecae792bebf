#include "app/editor/commands/Transcriptions.h"
#include "tests/editor/Lines.h"

using namespace murbo;

TEST(Transcriptions, knowWhatIsHeardAndWhyTheLastTryOfOthersFailed) {
    Lines lines;
    auto& state = Transcriptions::of(lines.editor());
    EXPECT_EQ(&Transcriptions::of(lines.editor()), &state);
    int changes = 0;
    QObject::connect(&state, &Transcriptions::changed, [&] { ++changes; });
    const auto rec = lines.project().sources[0].id;
    const SourceStretch first{rec, {1, 3}, "C01"};
    const SourceStretch second{rec, {1, 4}, "C02"};
    for (const auto& [stretch, why] : {std::pair{first, "deaf"}, {second, "late"}, {first, "deaf again"}}) {
        state.begin(stretch);
        EXPECT_TRUE(state.isHearing(rec, stretch.range));
        EXPECT_FALSE(state.isHearing(UUID::make(), stretch.range));
        EXPECT_FALSE(state.failure(rec, stretch.range)) << "it is being tried";
        state.end(Transcriptions::Failure{stretch, stretch.name == "C02", why});
        EXPECT_FALSE(state.isHearing(rec, stretch.range));
    }
    EXPECT_EQ(state.failure(rec, first.range)->words, "deaf again");
    EXPECT_TRUE(state.failure(rec, second.range)->paid);
    state.begin(second);
    state.end();
    EXPECT_FALSE(state.failure(rec, second.range)) << "it went well";
    EXPECT_TRUE(state.failure(rec, first.range));
    EXPECT_EQ(changes, 8);
}
