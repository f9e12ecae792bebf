#include "core/ai/DescribeClips.h"
#include "core/ai/FixWords.h"
#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "core/ai/LookKit.h"
#include "core/ai/NotesFromFrames.h"
#include "core/ai/Pricing.h"
#include "core/ai/Reply.h"
#include "core/ai/SoundKit.h"
#include "core/ai/StillThere.h"
#include "core/model/ModelCodec.h"
#include "tests/ai/Told.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

/// What the models were told, made once.
struct ToldOnce {
    ToldOnce() {
        told.addVideo("The fall", {told.cut(1, 4), told.cut(101, 104), told.cut(0.5, 2)});
        now = told.project;
        // The owner went on: a line came, another went, a clip is gone.
        auto& lines = now.transcripts.begin()->second.lines.edit();
        lines[1].gone = true;
        lines.insert(lines.begin(), {.start = 0.2, .end = 0.8, .text = "before"});
        now.clips.edit().erase(now.clips.begin() + 2);
    }

    Told told;
    Project now;
};

void hold(const std::vector<Cut>& cuts, const Project& project) {
    for (const auto& cut : cuts) {
        require(cut.end - cut.start >= 0.3 || cut.generator, "a cut is too short");
        require(project.source(cut.source) || cut.generator, "a cut of no footage");
    }
}

/// The project is whole, and reads back as it was written.
void hold(const Project& project) {
    require(Codec::decode<Project>(Codec::encode(project)).videos == project.videos,
            "a video changed on disk");
}

void cut(const nlohmann::json& object, std::string_view text, const ToldOnce& once) {
    auto loop = once.told.reading({once.told.project.clips[0].id});
    while (loop.goesOn(text)) require(loop.rounds() <= Reading::maxRounds, "it reads too often");
    const auto& video = once.told.project.videos[0];
    for (const auto* revised : {static_cast<const Video*>(nullptr), &video}) {
        const auto answer = CutToInstruction::answer(object, loop, revised);
        require(!answer.title.empty() && (!answer.cuts.empty() || !answer.note.empty()), "no words");
        hold(answer.cuts, once.told.project);
        hold(StillThere::cuts(answer.cuts, loop.said(), once.now), once.now);
    }
    for (const auto& idea : Ideas::ideas(object, loop, std::nullopt, LastRuns::now(Run::By::app)))
        hold(idea.cuts, once.told.project);
}

/// A change to a copy of the project as it is by now: whole, or none.
template <class Change>
void change(const ToldOnce& once, Change apply) {
    auto project = once.now;
    try {
        apply(project);
    } catch (const Problem& problem) {
        require(!problem.message().empty(), "a failure without words");
        require(project == once.now, "half a change");
    }
    hold(project);
}

void dress(const nlohmann::json& object, const Said& told, const ToldOnce& once) {
    const auto run = LastRuns::now(Run::By::app);
    const auto video = once.now.videos[0].id;
    const LookKit::Offers offers{{.id = "a.book", .name = "A", .about = "B", .mute = {}}};
    const auto brought = StillThere::tags(object, told, Said(once.now));
    change(once, [&](Project& project) { LookKit::apply(brought, video, project, offers, offers, run); });
    change(once, [&](Project& project) {
        SoundKit::apply(brought, video, project, {{"boom.wav", "media/boom.wav"}}, run);
    });
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const ToldOnce once;
    static const Said told(once.told.project);
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    Pricing::prices(text);
    const auto object = Reply::object(text);
    require(object.is_object(), "a reply is no object");
    cut(object, text, once);
    dress(object, told, once);
    Brief::Clips clips;
    for (const auto& clip : once.told.project.clips) clips.push_back(&clip);
    const auto run = LastRuns::now(Run::By::app);
    const auto summaries = DescribeClips::read(text, clips, told);
    change(once, [&](Project& project) { DescribeClips::apply(summaries, project, run); });
    const auto corrected = FixWords::answer(object, clips, told);
    change(once, [&](Project& project) { FixWords::apply(corrected.corrections, told, project, run); });
    if (const auto words = NotesFromFrames::words(object))
        require(words->size() <= 1'000, "a note is too long");
    return 0;
}
