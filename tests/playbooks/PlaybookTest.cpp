#include "core/playbooks/Playbook.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Playbook, keepsEntranceAndExitWithinItsLength) {
    const auto lengths = [](const std::string& more) {
        const auto playbook = Playbook::decode(R"({"name": "A", "layers": [])" + more + "}");
        return std::tuple{playbook.naturalLength(), playbook.enterLength(), playbook.exitLength()};
    };
    EXPECT_EQ(lengths(""), std::tuple(3.0, 0.3, 0.3));
    EXPECT_EQ(lengths(R"(, "length": 0)"), std::tuple(0.2, 0.1, 0.1));
    EXPECT_EQ(lengths(R"(, "timing": {"in": 5})"), std::tuple(3.0, 1.5, 0.3));
}
