#include "app/editor/commands/IdeaCommands.h"

#include "app/editor/commands/Row.h"
#include "app/editor/commands/VideoCommands.h"
#include "core/ai/LastRuns.h"
#include "core/ai/MadeVideo.h"
#include "platform/base/Problem.h"

#include <algorithm>

namespace murbo::IdeaCommands {
namespace {

/// Takes an idea from those that wait.
std::optional<Idea> take(Project& project, const UUID& id) {
    if (!project.ideas) return std::nullopt;
    auto& ideas = project.ideas->edit();
    const auto found =
        std::find_if(ideas.begin(), ideas.end(), [&](const Idea& one) { return one.id == id; });
    if (found == ideas.end()) return std::nullopt;
    auto idea = std::move(*found);
    ideas.erase(found);
    return idea;
}

}

UUID make(Project& project, const UUID& id, Video::Aspect aspect) {
    auto idea = take(project, id);
    if (!idea) throw Problem("The idea is gone.");
    std::erase_if(idea->cuts, [&](const Cut& cut) { return !project.source(cut.source); });
    if (idea->cuts.empty()) throw Problem("The footage of that idea is gone from the project.");
    for (auto& cut : idea->cuts) cut.id = UUID::make();
    return MadeVideo::add(project, idea->title, aspect, std::move(idea->cuts), Kit::ID::ideas,
                          idea->run.value_or(LastRuns::now(Run::By::app)));
}

std::optional<UUID> makeVideo(Editor& editor, const UUID& idea) {
    UUID made;
    try {
        editor.change("Make Video",
                      [&](Project& project) { made = make(project, idea, VideoCommands::lastAspect()); });
    } catch (const Problem& problem) {
        editor.refuse(problem.message());
        return std::nullopt;
    }
    editor.openOnTimeline(made);
    return made;
}

void throwAway(Editor& editor, const UUID& idea) {
    editor.change("Throw Away Idea", [&](Project& project) { take(project, idea); });
}

CommandList table() {
    const auto any = [](const Editor& editor) {
        return editor.project().ideas && !editor.project().ideas->empty();
    };
    return {
        row<Kind::IdeaNumber>("makeVideo", "Make Video", {"idea"},
                              [](Editor& editor, const UUID& idea) { makeVideo(editor, idea); })
            .when(any),
        row<Kind::IdeaNumber>("throwAway", "Throw Away Idea", {"idea"}, throwAway).when(any),
    };
}

}
