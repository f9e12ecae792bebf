#include "app/mcp/MCPHost.h"
#include "core/model/ModelCodec.h"
#include "core/playbooks/Library.h"
#include "platform/base/Files.h"
#include "tests/TemporaryFolder.h"
#include "tests/host/CallMaker.h"
#include "tests/host/HeldSession.h"

#include <gtest/gtest.h>

using namespace murbo;
using nlohmann::json;

namespace {

constexpr int usualCalls = 4000;
constexpr int callsAProject = 40;

int callsToMake() {
    const char* asked = std::getenv("MURBO_CALLS");
    return asked ? std::atoi(asked) : usualCalls;
}

std::shared_ptr<HeldSession> session() {
    auto made = std::make_shared<HeldSession>();
    made->addClip(100, {"over there", "one two"});
    made->notes().push_back({.start = 2, .end = 3, .text = "a cat"});
    made->addVideo("Other", {made->cut(101, 104), made->cut(1, 2)});
    made->Footage::project.bookmarks.edit().push_back({.number = 1, .source = made->source(), .at = 3});
    return made;
}

}

/// What can be called at all, called with anything: always an answer in words, never half a change.
TEST(GeneratedCalls, noneHarms) {
    const TemporaryFolder folder;
    Library::setOverride(folder.path);
    Files::createFolder(Library::sounds() / "hits");
    Files::writeWhole(Library::sounds() / "hits" / "boom.wav", "RIFF");
    MCPHost host(nullptr);
    auto permissions = host.permissions();
    permissions.use(MCPPermissions::Preset::allowAll);
    host.setPermissions(permissions);

    CallMaker maker(2001);
    std::shared_ptr<HeldSession> open;
    int failures = 0;
    for (int count = 0; count < callsToMake(); ++count) {
        if (count % callsAProject == 0) host.setSession(open = session());
        const auto& tool = maker.tool();
        const auto arguments = maker.object(tool.params);
        const auto before = open->project();
        json result;
        host.call(std::string(tool.name), arguments, nullptr, [&](json given) { result = std::move(given); });

        const auto shown = std::string(tool.name) + " " + arguments.dump().substr(0, 1000);
        ASSERT_TRUE(result.is_object()) << shown;
        const auto text = result["content"][0]["text"].get<std::string>();
        ASSERT_FALSE(text.empty()) << shown;
        ASSERT_EQ(text.find(" could not be done."), text.npos) << shown << ": " << text;
        ASSERT_NO_THROW(result.dump()) << shown;
        if (result["isError"].get<bool>()) {
            ++failures;
            ASSERT_EQ(open->project(), before) << shown;
        } else if (open->project() != before) {
            ASSERT_EQ(Codec::decode<Project>(Codec::encode(open->project())).videos, open->project().videos)
                << shown << ": it could not be read again";
        }
    }
    EXPECT_GT(failures, callsToMake() / 10);
    EXPECT_LT(failures, callsToMake() * 9 / 10);
    Library::setOverride(std::nullopt);
}
