#include "core/render/plan/PlanBooks.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

std::string playbookWith(const std::string& params, const std::string& keys, int layers) {
    std::string list;
    for (int at = 0; at < layers; ++at)
        list += (at > 0 ? "," : "") + std::string(R"({"text": "Hi", "keys": [)") + keys + "]}";
    return R"({"name": "A", "params": {)" + params + R"(}, "layers": [)" + list + "]}";
}

}

TEST(PlanBooks, takeNoPlaybookThatIsMadeOfTooMuch) {
    const TemporaryFolder folder;
    std::string params, keys = R"({"t": 0})";
    for (int at = 0; at < 21'000; ++at)
        params += (at > 0 ? ",\"p" : "\"p") + std::to_string(at) + R"(": {"type": "text", "value": "x"})";
    for (int at = 1; at < 30; ++at) keys += R"(, {"t": 1})";
    const auto pin = [&](const std::string& id, const std::string& json) {
        folder.file("playbooks/" + id + "@1.mbplay/playbook.json", json);
    };
    pin("small", playbookWith("", "", 3));
    pin("params", playbookWith(params, "", 1));
    pin("keys", playbookWith("", keys, 1000));
    pin("layers", playbookWith("", "", 21'000));
    PlanBooks books(folder.path);
    for (const char* id : {"params", "keys", "layers"}) EXPECT_EQ(books.find(id, 1), nullptr) << id;
    const auto* small = books.find("small", 1);
    ASSERT_NE(small, nullptr) << "what was refused takes nothing from the others";
    EXPECT_EQ(books.find("small", 1), small);
}
