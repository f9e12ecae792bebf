#include "app/editor/ai/FootageTasks.h"

#include "core/ai/DescribeClips.h"
#include "core/ai/FixWords.h"
#include "core/ai/NotesFromFrames.h"
#include "core/ai/Pricing.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "platform/base/Problem.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::FootageTasks {
namespace {

using nlohmann::json;

/// The clips of these ids that are there, in the project's order.
Brief::Clips chosen(const Project& project, const ClipIds& ids) {
    const std::set<UUID> wanted(ids.begin(), ids.end());
    Brief::Clips found;
    for (const auto& clip : project.clips)
        if (wanted.contains(clip.id)) found.push_back(&clip);
    return found;
}

Brief::Clips chosenOrGone(const Project& project, const ClipIds& ids) {
    auto found = chosen(project, ids);
    if (found.empty()) throw Problem("The clips are gone.");
    return found;
}

bool saysSomething(const Clip& clip, const Said& said) {
    const auto& pieces = said.inClip(clip.id);
    return std::any_of(pieces.begin(), pieces.end(), [](const Said::Piece* piece) { return !piece->gone; });
}

Brief::Clips saying(const Project& project, const ClipIds& clips, const Said& said) {
    auto found = chosen(project, clips);
    std::erase_if(found, [&](const Clip* clip) { return !saysSomething(*clip, said); });
    return found;
}

using MakeAsk = Ask (*)(const Brief::Clips&, const Project&, const Said&);

/// Tells a model of clips by a request that `ask` words.
std::function<Conversation(const Project&)> telling(const ClipIds& clips, MakeAsk ask) {
    return [=](const Project& now) {
        Conversation::Telling telling(now);
        telling.ask = ask(chosenOrGone(*telling.project, clips), *telling.project, *telling.said);
        return Conversation(std::move(telling));
    };
}

/// The summaries of clips that are still there, without key lines that are not.
DescribeClips::Summaries stillThere(DescribeClips::Summaries read, const Project& now) {
    std::set<UUID> clips;
    for (const auto& clip : now.clips) clips.insert(clip.id);
    std::erase_if(read, [&](const auto& entry) { return !clips.contains(entry.first); });
    const Said said(now);
    for (auto& [clip, summary] : read) {
        const auto* line = summary.keyLine ? said.of(*summary.keyLine) : nullptr;
        if (!line || line->clip != clip) summary.keyLine.reset();
    }
    return read;
}

ModelTask::Settled settleSummaries(const json& answer, const Brief::Clips& clips, const Said& told,
                                   Project& now, const Run& run) {
    const auto read = DescribeClips::summaries(Reply::member(answer, "clips"), clips, told);
    if (read.empty()) throw Problem("No descriptions could be read from the answer.");
    const auto kept = stillThere(read, now);
    std::vector<std::string> gone;
    for (const auto* clip : clips)
        if (read.contains(clip->id) && !kept.contains(clip->id)) gone.push_back(clip->tag() + " is gone");
    if (kept.empty()) throw Problem(fmt::format("{}.", fmt::join(gone, "; ")));
    DescribeClips::apply(kept, now, run);
    return {.words = gone.empty() ? "" : fmt::format("Left out: {}.", fmt::join(gone, "; ")),
            .count = kept.size()};
}

ModelTask::Settled settleCorrections(const json& answer, const Brief::Clips& clips, const Said& told,
                                     Project& now, const Run& run) {
    if (!Reply::member(answer, "lines").is_array())
        throw Problem("No corrections could be read from the answer; Activity has it.");
    const auto read = FixWords::answer(answer, clips, told);
    ModelTask::Settled settled;
    settled.count = FixWords::apply(read.corrections, told, now, run);
    std::vector<std::string> reasons;
    for (const auto& tag : read.leftOut) reasons.push_back(tag + " would say something else");
    if (const auto lost = read.corrections.size() - settled.count; lost > 0)
        reasons.push_back(fmt::format("{} line{} changed meanwhile", lost, lost == 1 ? "" : "s"));
    // A left-out list begins after what was done; here it stands alone.
    if (!reasons.empty()) settled.words = VideoChange::leftOut(reasons).substr(1);
    return settled;
}

Ask noteAsk(const UUID& source, Stretch stretch, const Project& project, const Said& said) {
    const auto* file = project.source(source);
    if (!file) throw Problem("The footage is gone from the project.");
    auto frames = NotesFromFrames::frames(*file, stretch, {});
    if (frames.empty()) throw Problem("No picture of that stretch could be read.");
    return NotesFromFrames::ask(source, stretch, std::move(frames), project, said);
}

}

std::vector<ClipIds> batches(const Project& project, const ClipIds& clips) {
    const Said said(project);
    std::vector<ClipIds> all;
    for (const auto& batch : DescribeClips::batches(saying(project, clips, said))) {
        all.emplace_back();
        for (const auto* clip : batch) all.back().push_back(clip->id);
    }
    return all;
}

std::string tags(const Project& project, const ClipIds& clips) {
    std::string text;
    for (const auto* clip : chosen(project, clips)) text += (text.empty() ? "" : ", ") + clip->tag();
    return text;
}

ModelTask describe(const Project& project, const ClipIds& batch) {
    const auto names = tags(project, batch);
    ModelTask task;
    task.title = "Describe " + names;
    task.label = "Describing";
    task.step = "Describe Clips";
    task.beforeReason = names + " could not be described. ";
    task.isPart = true;
    task.begin = telling(batch, DescribeClips::ask);
    task.finish = [batch](const json& answer, const Conversation& told, Project& now, const Run& run) {
        return settleSummaries(answer, chosen(told.project(), batch), told.said(), now, run);
    };
    return task;
}

double describingCost(const Project& project, const ClipIds& clips, const Price& price) {
    const Said said(project);
    return DescribeClips::estimate(price, saying(project, clips, said), project, said);
}

ModelTask fixWords(const Project& project, const ClipIds& batch) {
    const auto names = tags(project, batch);
    ModelTask task;
    task.title = "Fix Words";
    task.label = "Fix Words";
    task.step = "Fix Words";
    task.beforeReason = names + " could not be corrected. ";
    task.isPart = true;
    task.begin = telling(batch, FixWords::ask);
    task.finish = [batch](const json& answer, const Conversation& told, Project& now, const Run& run) {
        return settleCorrections(answer, chosen(told.project(), batch), told.said(), now, run);
    };
    return task;
}

double fixingCost(const Project& project, const ClipIds& clips, const Price& price) {
    const Said said(project);
    double sum = 0;
    for (const auto& batch : DescribeClips::batches(saying(project, clips, said)))
        sum += Pricing::estimate(price, FixWords::ask(batch, project, said));
    return sum;
}

ModelTask note(const UUID& source, Stretch stretch) {
    ModelTask task;
    task.title = "Notes from Frames";
    task.label = task.title;
    task.step = task.title;
    task.beforeReason = task.title + " stopped. ";
    task.begin = [=](const Project& now) {
        Conversation::Telling telling(now);
        telling.ask = noteAsk(source, stretch, *telling.project, *telling.said);
        return Conversation(std::move(telling));
    };
    task.finish = [=](const json& answer, const Conversation&, Project& now, const Run& run) {
        const auto words = NotesFromFrames::words(answer);
        if (!words) throw Problem("No note could be read from the answer; Activity has it.");
        NotesFromFrames::apply(*words, source, stretch, now, run);
        return ModelTask::Settled{.words = *words};
    };
    return task;
}

double notingCost(const Project& project, const UUID& source, Stretch stretch, const Price& price) {
    const Said said(project);
    return Pricing::estimate(price, noteAsk(source, stretch, project, said));
}

}
