#include "app/editor/ai/VideoTasks.h"

#include "core/ai/CutToInstruction.h"
#include "core/ai/DescribeClips.h"
#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "core/ai/MadeVideo.h"
#include "core/ai/Pricing.h"
#include "core/ai/StillThere.h"
#include "core/ai/VideoChange.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <set>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::VideoTasks {
namespace {

using nlohmann::json;
using Settled = ModelTask::Settled;

std::vector<UUID> allClips(const Project& project) {
    std::vector<UUID> clips;
    for (const auto& clip : project.clips) clips.push_back(clip.id);
    return clips;
}

std::vector<UUID> scope(const Wish& wish, const Project& project) {
    return wish.clips.empty() ? allClips(project) : wish.clips;
}

/// The clips whose lines come with the opening: those that the owner chose, unless they are too many for
/// that.
std::vector<UUID> given(const Wish& wish, const Project& project) {
    const std::set<UUID> chosen(wish.clips.begin(), wish.clips.end());
    Brief::Clips clips;
    for (const auto& clip : project.clips)
        if (chosen.contains(clip.id)) clips.push_back(&clip);
    return DescribeClips::batches(clips).size() == 1 ? wish.clips : std::vector<UUID>();
}

/// " Left out: 2 cuts whose clips are gone.", or nothing where none was.
std::string lost(std::size_t cuts) {
    if (cuts == 0) return "";
    return fmt::format(" Left out: {} cut{} whose clip is gone.", cuts, cuts == 1 ? "" : "s");
}

std::string joined(const std::string& note, const std::string& leftOut) {
    return Text::trimmed(note + leftOut);
}

/// Takes out the ideas' cuts whose clips are gone, and ideas that have none left. Gives how many cuts went.
std::size_t keepWhatHolds(std::vector<Idea>& ideas, const Said& told, const Project& now) {
    std::size_t gone = 0;
    for (auto& idea : ideas) {
        const auto before = idea.cuts.size();
        idea.cuts = StillThere::cuts(std::move(idea.cuts), told, now);
        idea.title = MadeVideo::title(idea.title);
        gone += before - idea.cuts.size();
    }
    std::erase_if(ideas, [](const Idea& idea) { return idea.cuts.empty(); });
    return gone;
}

Settled settleIdeas(const json& answer, const Reading& loop, const std::optional<std::string>& instruction,
                    Project& now, const Run& run) {
    auto found = Ideas::ideas(answer, loop, instruction, run);
    const auto gone = keepWhatHolds(found, loop.said(), now);
    if (found.empty())
        return {.words = "No ideas came back that hold up; Activity has the answer" + lost(gone),
                .usable = false};
    if (!now.ideas) now.ideas.emplace();
    auto& all = now.ideas->edit();
    const auto count = found.size();
    std::ranges::move(found, std::back_inserter(all));
    return {.words = fmt::format("{} idea{}{}{}", count, count == 1 ? "" : "s", gone ? "." : "", lost(gone)),
            .count = count};
}

Settled settleCut(const json& answer, const Reading& loop, const Wish& wish, std::optional<Kit::ID> also,
                  Project& now, const Run& run) {
    auto read = CutToInstruction::answer(answer, loop);
    if (read.cuts.empty()) return {.words = read.note, .usable = false};
    const auto asked = read.cuts.size();
    auto cuts = StillThere::cuts(std::move(read.cuts), loop.said(), now);
    const auto leftOut = lost(asked - cuts.size());
    if (cuts.empty()) return {.words = joined(read.note, leftOut), .usable = false};
    const auto made = MadeVideo::add(now, MadeVideo::title(read.title), wish.aspect, std::move(cuts),
                                     Kit::ID::cutToInstruction, run);
    if (also)
        VideoChange::apply(now, made, "The video",
                           [&](Video& video) { LastRuns::note(video.runs, *also, run); });
    return {.words = joined(read.note, leftOut), .video = made};
}

Settled settleRevision(const json& answer, const Reading& loop, const UUID& id, Project& now,
                       const Run& run) {
    const auto told = VideoChange::video(loop.project(), id, "The video");
    const auto live = VideoChange::video(now, id, "The video");
    if (!StillThere::samePlay(told.cuts, live.cuts, loop.said()))
        return {.words = fmt::format("The cuts of “{}” were changed meanwhile, so they stay as they are; "
                                     "Activity has the answer.",
                                     live.title),
                .usable = false};
    auto read = CutToInstruction::answer(answer, loop, &live);
    if (read.cuts.empty()) return {.words = read.note, .usable = false};
    const auto asked = read.cuts.size();
    auto cuts = StillThere::cuts(std::move(read.cuts), loop.said(), now);
    const auto leftOut = lost(asked - cuts.size());
    if (cuts.empty()) return {.words = joined(read.note, leftOut), .usable = false};
    VideoChange::apply(now, id, "The video", [&](Video& video) {
        video.cuts = std::move(cuts);
        LastRuns::note(video.runs, Kit::ID::reviseCuts, run);
    });
    return {.words = joined(read.note, leftOut)};
}

ModelTask named(const std::string& title, const std::string& step) {
    ModelTask task;
    task.title = title;
    task.label = title;
    task.step = step;
    task.beforeReason = title + " stopped. ";
    return task;
}

}

ModelTask ideas(const Wish& wish) {
    const auto instruction =
        Text::trimmed(wish.instruction).empty() ? std::nullopt : std::optional(wish.instruction);
    auto task = named("Find ideas", "Find Ideas");
    task.begin = [=](const Project& now) {
        return Conversation(
            Ideas::reading(scope(wish, now), given(wish, now), instruction, wish.aspect, now));
    };
    task.finish = [=](const json& answer, const Conversation& told, Project& now, const Run& run) {
        return settleIdeas(answer, *told.reading(), instruction, now, run);
    };
    return task;
}

ModelTask cut(const Wish& wish, std::optional<Kit::ID> also) {
    auto task = named("Cut to instruction", "Cut to Instruction");
    task.begin = [=](const Project& now) {
        return Conversation(CutToInstruction::reading(wish.instruction, scope(wish, now), given(wish, now),
                                                      wish.aspect, now));
    };
    task.finish = [=](const json& answer, const Conversation& told, Project& now, const Run& run) {
        return settleCut(answer, *told.reading(), wish, also, now, run);
    };
    return task;
}

ModelTask revise(const Video& video, const std::string& instruction) {
    auto task = named("Revise " + video.title, "Revise Cuts");
    task.begin = [id = video.id, instruction](const Project& now) {
        return Conversation(CutToInstruction::revising(VideoChange::video(now, id, "The video"), instruction,
                                                       allClips(now), now));
    };
    task.finish = [id = video.id](const json& answer, const Conversation& told, Project& now,
                                  const Run& run) {
        return settleRevision(answer, *told.reading(), id, now, run);
    };
    return task;
}

double cost(const ModelTask& task, const Project& project, const Price& price) {
    return Pricing::estimate(price, task.begin(project).ask());
}

}
