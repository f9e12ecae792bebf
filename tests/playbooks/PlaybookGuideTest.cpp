#include "core/playbooks/Effect.h"
#include "core/playbooks/Playbook.h"
#include "core/playbooks/PlaybookGuide.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;

TEST(PlaybookGuide, carriesEveryWordOfTheFormat) {
    const auto guide = PlaybookGuide::text();
    for (const auto effect : rawTexts(Effect{})) EXPECT_THAT(guide, HasSubstr(std::string(effect)));
    EXPECT_THAT(guide, HasSubstr("(style: pop, clean, bold, story, boxed or the owner's, or a $parameter)"));
    EXPECT_THAT(guide, HasSubstr("\"ease\": smooth/linear/snap/bounce}]"));
    EXPECT_THAT(guide, HasSubstr("in, out (none, fade, pop, zoom, slide-left,"));
    // Its own example is a playbook that passes.
    const auto from = guide.find(R"({"name": "Replay")");
    const auto to = guide.find("\n\nWORKING");
    ASSERT_NE(to, std::string::npos);
    EXPECT_EQ(Playbook::decode(guide.substr(from, to - from)).layers.size(), 3u);
}
