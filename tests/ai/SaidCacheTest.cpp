#include "Footage.h"
#include "core/ai/SaidCache.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

class SaidCacheTest : public testing::Test, protected Footage {
protected:
    SaidCacheTest() {
        addClip(0, {"one", "Two", "three"}); // 1-2, 3-4, 5-6
        addClip(100, {"four", "five"});
        lines().insert(lines().begin(), {.start = 50, .end = 51, .text = "in no clip"});
        notes().push_back({.start = 6.2, .end = 6.6, .text = "a white screen"});
    }

    /// What the cache gives is as if it were made anew.
    void expectFresh(const Said& given) const {
        const Said fresh(project);
        ASSERT_EQ(given.all().size(), fresh.all().size());
        for (std::size_t at = 0; at < fresh.all().size(); ++at) {
            const auto& one = given.all()[at];
            const auto& other = fresh.all()[at];
            EXPECT_EQ(
                std::tie(one.id, one.tag, one.text, one.start, one.end, one.gone, one.note),
                std::tie(other.id, other.tag, other.text, other.start, other.end, other.gone, other.note));
            EXPECT_EQ(given.tagged(one.tag), &one);
        }
    }

    SaidCache cache;
};

}

TEST_F(SaidCacheTest, keepsUpWithEveryChange) {
    {
        const auto held = cache.of(project);
        lines()[1].text = "other words";
        EXPECT_EQ(cache.of(project)->tagged("C01.01")->text, "other words");
        EXPECT_EQ(held->tagged("C01.01")->text, "one") << "what somebody holds stays as it was";
    }
    const auto* first = cache.of(project).get();
    EXPECT_EQ(cache.of(project).get(), first) << "nothing changed";
    EXPECT_EQ(first->holding("two").size(), 1u);
    const auto change = [&](const char* what, bool wordsAlone, auto&& edit) {
        SCOPED_TRACE(what);
        const auto* before = cache.of(project).get();
        edit();
        const auto now = cache.of(project);
        EXPECT_EQ(now.get() == before, wordsAlone);
        expectFresh(*now);
    };
    change("words", true, [&] { lines()[2].text = "SECOND"; });
    EXPECT_TRUE(cache.of(project)->holding("two").empty());
    EXPECT_EQ(cache.of(project)->holding("second").size(), 1u);
    change("a note", true, [&] { notes()[0].text = "a black screen"; });
    change("gone", false, [&] { lines()[1].gone = true; });
    change("moved", false, [&] { lines()[3].start = 4.5; });
    change("removed, words as well", false, [&] {
        lines()[2].text = "third";
        lines().erase(lines().begin() + 1);
    });
    change("a clip", false, [&] { project.clips.edit()[0].end = 4; });
    change("its start", false, [&] { project.clips.edit()[0].start = 2; });
    change("its part", false, [&] { project.clips.edit()[0].part = "a"; });
    change("its number", false, [&] { project.clips.edit()[1].number = 7; });
    change("its title", true, [&] { project.clips.edit()[1].name = "Mine"; });
    change("its source", false, [&] { project.clips.edit()[1].source = UUID::make(); });
}
