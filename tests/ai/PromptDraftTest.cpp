#include "core/ai/PromptDraft.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(PromptDraft, putsNamesInAndTagsOut) {
    PromptDraft draft{.text = "Cut"};
    draft.put({{"Boss", "C01"}, {"Boss Fight", "C02"}});
    draft.put({{"Boss", "C03"}});
    EXPECT_EQ(draft.text, "Cut “Boss”, “Boss Fight” “Boss” (C03)");
    EXPECT_EQ(draft.written(), "Cut C01, C02 C03");
}
