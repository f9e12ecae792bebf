#include "core/ai/PromptDraft.h"
#include "core/ai/PromptIdeas.h"
#include "tests/Approved.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(PromptIdeas, fitTheProjectAsApproved) {
    std::string text;
    const auto tell = [&](const char* heading, const PromptIdeas::Slots& slots, std::size_t count = 100) {
        SeededRandom one(7), other(7);
        const auto chosen = PromptIdeas::choose(count, slots, one);
        EXPECT_EQ(chosen, PromptIdeas::choose(count, slots, other));
        text += fmt::format("== {}, {} of {}\n", heading, chosen.size(), PromptIdeas::all().size());
        for (const auto& words : chosen) text += words + "\n";
    };
    PromptIdeas::Slots slots{.clips = {"C01", "C02", "C03", "C04"},
                             .sources = {"rec.mp4", "cam.mp4"},
                             .lines = {"C01.02", "C03.01"}};
    tell("nothing", {});
    tell("no video", slots);
    slots.videos = {"V1", "V2"};
    slots.pickedClips = {"C07"};
    tell("one clip is picked", slots);
    slots.pickedClips = {"C07", "C09"};
    slots.pickedVideo = "V8";
    slots.pickedClip = "C08";
    slots.pickedSource = "own.mov";
    tell("all is picked", slots);
    tell("a few", slots, 3);
    tell("two clips", {.clips = {"C01", "C02"}});
    tell("a clip", {.clips = {"C01"}});
    SeededRandom random(1);
    for (const auto* words :
         {"{clips} of {video}", "{video", "}{video}", "{none}", "no slot", "{line}{line}"})
        text += fmt::format("{} | {}\n", words, PromptIdeas::fill(words, slots, random).value_or("none"));
    expectApproved("ai/approved/PromptIdeas.txt", text);
}

TEST(PromptDraft, namesWhatIsPickedAsApproved) {
    std::string text;
    PromptDraft draft;
    const auto put = [&](const std::vector<PromptDraft::Thing>& things) {
        draft.put(things);
        text += fmt::format("{} | {}\n", draft.text, draft.written());
    };
    put({});
    put({{"Boss", "C01"}, {"Boss Fight", "V2"}});
    put({{"Boss", "C03"}});
    draft.text += ": why ";
    put({{"Boss", "C01"}, {"“Boss” (C03)", "C04"}});
    draft.text = "“Boss” “Boss”“Boss Fight” “Bos”";
    put({{"Boss Fight", "C05"}});
    expectApproved("ai/approved/PromptDraft.txt", text);
}
