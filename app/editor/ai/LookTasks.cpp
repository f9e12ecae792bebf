#include "app/editor/ai/LookTasks.h"

#include "app/editor/KeptMedia.h"
#include "core/ai/LookOffers.h"
#include "core/ai/SoundKit.h"
#include "core/ai/StillThere.h"
#include "core/ai/VideoChange.h"
#include "core/mcp/LibraryTools.h"

#include <set>

#include <nlohmann/json.hpp>

namespace murbo::LookTasks {
namespace {

using nlohmann::json;
using Package = std::optional<std::filesystem::path>;

const Video& found(const Project& project, const UUID& video) {
    return VideoChange::video(project, video, "The video");
}

Conversation tellOfLook(const UUID& video, const Project& now) {
    Conversation::Telling telling(now);
    const auto offers = LookOffers::ofLibrary();
    telling.ask = LookKit::ask(found(*telling.project, video), *telling.project, *telling.said,
                               offers.layouts, offers.overlays);
    return Conversation(std::move(telling));
}

Conversation tellOfSounds(const UUID& video, const Project& now) {
    Conversation::Telling telling(now);
    std::vector<std::string> names;
    for (const auto& sound : LibraryTools::sounds()) names.push_back(sound.first);
    telling.ask = SoundKit::ask(found(*telling.project, video), *telling.project, *telling.said, names);
    return Conversation(std::move(telling));
}

/// The sounds that an answer names, as the project keeps them.
SoundsByTag::Library kept(const json& answer, const Package& package) {
    const auto files = SoundKit::files(answer);
    const std::set<std::string> named(files.begin(), files.end());
    SoundsByTag::Library library;
    for (const auto& [name, file] : LibraryTools::sounds()) {
        if (!named.contains(name)) continue;
        if (const auto path = KeptMedia::keep(file, "sounds", package)) library.emplace(name, *path);
    }
    return library;
}

ModelTask named(const char* title, const char* step) {
    ModelTask task;
    task.title = title;
    task.label = title;
    task.step = step;
    task.beforeReason = std::string(title) + " stopped. ";
    return task;
}

}

ModelTask look(const UUID& video, const Package& package) {
    auto task = named("Look", "Look by AI");
    task.begin = [=](const Project& now) { return tellOfLook(video, now); };
    task.finish = [=](const json& answer, const Conversation& told, Project& now, const Run& run) {
        const auto offers = LookOffers::ofLibrary();
        auto words = LookKit::apply(StillThere::tags(answer, told.said(), Said(now)), video, now,
                                    offers.layouts, offers.overlays, run);
        if (const auto& changed = found(now, video).look; changed && package)
            LookOffers::pin(*changed, *package);
        return ModelTask::Settled{.words = std::move(words)};
    };
    return task;
}

ModelTask sound(const UUID& video, const Package& package) {
    auto task = named("Sound", "Sound by AI");
    task.begin = [=](const Project& now) { return tellOfSounds(video, now); };
    task.finish = [=](const json& answer, const Conversation& told, Project& now, const Run& run) {
        return ModelTask::Settled{.words = SoundKit::apply(StillThere::tags(answer, told.said(), Said(now)),
                                                           video, now, kept(answer, package), run)};
    };
    return task;
}

std::optional<std::string> noSounds() {
    if (!LibraryTools::sounds().empty()) return std::nullopt;
    return "The sound library is empty: Settings ▸ General ▸ Sounds";
}

}
