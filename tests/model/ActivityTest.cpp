#include "core/model/package/Activity.h"
#include "tests/TemporaryFolder.h"

#include <thread>

#include <gtest/gtest.h>

using namespace murbo;
using namespace std::chrono;

namespace {

Activity made(const std::string& title) {
    return {.kind = "transcribe", .title = title, .started = sys_days(2026y / January / 10) + 20h};
}

}

TEST(Activity, standsInOneLineEachOldestFirst) {
    const TemporaryFolder package;
    auto full = made("Transcribe C01 “a/b”\n");
    full.engine = "whisper";
    full.ended = full.started + 90s;
    full.state = "done";
    full.cost = 0.25;
    full.error = "an error";
    full.request = "a request";
    full.reply = "a reply";
    Activity::log(made("first"), package.path);
    Activity::log(full, package.path);
    EXPECT_EQ(contentsOf(package / "activity.jsonl"),
              R"({"kind":"transcribe","started":"2026-01-10T20:00:00Z","state":"running","title":"first"})"
              "\n"
              R"({"cost":0.25,"ended":"2026-01-10T20:01:30Z","engine":"whisper","error":"an error",)"
              R"("kind":"transcribe","reply":"a reply","request":"a request",)"
              R"("started":"2026-01-10T20:00:00Z","state":"done","title":"Transcribe C01 “a/b”\n"})"
              "\n");
    EXPECT_EQ(Activity::read(package.path), (std::vector{made("first"), full}));
}

TEST(Activity, outlivesBrokenLinesRoundIt) {
    const TemporaryFolder package;
    Activity::log(made("before"), package.path);
    std::ofstream(package / "activity.jsonl", std::ios::app)
        << "\n[]\nnull\n\xFF\n"
        << R"({"kind":"ask","title":"no date","started":"soon","state":"done"})"
        << "\n"
        << R"({"kind":"transcribe","title":"cut sh)";
    Activity::log(made("after"), package.path);
    EXPECT_EQ(Activity::read(package.path), (std::vector{made("before"), made("after")}));
}

TEST(Activity, thatCannotBeLoggedStopsNothing) {
    const TemporaryFolder folder;
    Activity::log(made("nowhere"), folder / "missing.mbproj");
    Activity::log(made("not \xFF UTF-8"), folder.path);
    EXPECT_TRUE(Activity::read(folder / "missing.mbproj").empty());
    EXPECT_TRUE(Activity::read(folder.path).empty());
}

TEST(Activity, ofSeveralWritersAtOnceStaysWhole) {
    const TemporaryFolder package;
    const auto many = [&] {
        for (int at = 0; at < 50; ++at) Activity::log(made(std::string(20'000, 'x')), package.path);
    };
    { std::jthread one(many), other(many); }
    EXPECT_EQ(Activity::read(package.path).size(), 100u);
}
