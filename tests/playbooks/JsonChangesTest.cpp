#include "core/playbooks/JsonChanges.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(JsonChanges, sayWhereWhatChanged) {
    EXPECT_THAT(JsonChanges::lines(R"({"a": 1, "b": [1, {"c": "x"}], "version": 1, "gone": true})",
                                   R"({"a": 2, "b": [1, {"c": "y"}, [1, 2]], "version": 2, "new": "z"})"),
                ElementsAre("a: 1 → 2", "b[1].c: “x” → “y”", "b[2]: added (5 bytes)", "gone: removed",
                            "new: added “z”"));
    const std::string forty(40, 'a');
    EXPECT_THAT(JsonChanges::lines("{}", R"({"a": ")" + forty + R"("})"),
                ElementsAre("a: added “" + forty + "”"));
    EXPECT_THAT(JsonChanges::lines("{}", R"({"a": "ก)" + forty + R"("})"),
                ElementsAre("a: added “ก" + forty.substr(1) + "…”"));
    EXPECT_THAT(JsonChanges::lines(R"({"a": {"version": 1}})", R"({"a": {"version": 2}})"),
                ElementsAre("a.version: 1 → 2"))
        << "only the playbook's own goes without saying";
    EXPECT_THAT(JsonChanges::lines(R"({"a": [1, 2], "b": {}})", R"({"a": [1], "b": []})"),
                ElementsAre("a[1]: removed", "b: (2 bytes) → (2 bytes)"));
    EXPECT_THAT(JsonChanges::lines("1", "2"), ElementsAre("the top: 1 → 2"));
    EXPECT_THAT(JsonChanges::lines("{", "{}"), IsEmpty());
}
