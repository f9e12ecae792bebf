#include "core/render/export/OwnFiles.h"

#include "core/model/Project.h"
#include "core/playbooks/Library.h"
#include "core/render/plan/StageValue.h"
#include "platform/base/Problem.h"
#include "platform/base/SiblingFile.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <map>
#include <string>

#include <sys/stat.h>

namespace murbo {
namespace {

/// The absolute names among all that is added. Any other name stands for a file in the package or in a
/// playbook's folder, where nothing is written anyway.
class Names {
public:
    explicit Names(const Plan& given) : plan(given) {}

    void add(const std::string& name) {
        if (name.starts_with('/') && plan.file(name)) names.insert(name);
    }
    void add(const Video& video) {
        if (video.look) add(*video.look);
        for (const Cut& cut : video.cuts)
            if (cut.generator) add(cut.generator->values);
    }

    const std::set<std::string>& all() const { return names; }

private:
    void add(const std::optional<Values>& values) {
        if (!values) return;
        for (const auto& [_, value] : *values) add(value);
    }
    void add(const Look& look) {
        for (const auto& cues : {look.music, look.sounds})
            for (const SoundCue& cue : cues) add(cue.file);
        for (const Overlay& overlay : look.overlays) add(overlay.values);
        for (const Shot& shot : look.shots) add(shot.values);
    }

    const Plan& plan;
    std::set<std::string> names;
};

/// The files that the layers of placed playbooks name. A text without a parameter says the same wherever its
/// playbook is placed; one with parameters is filled in for each placement.
class LayerNames {
public:
    explicit LayerNames(Names& given) : names(given) {}

    void add(const Book& book, const Values& values) {
        const auto [found, isNew] = books.try_emplace(&book);
        if (isNew) read(book, found->second);
        for (const auto* text : found->second) {
            if (steps <= 0) return;
            const auto value = Stage::value(*text, values);
            if (value) names.add(*value);
            steps -= 1 + std::ranges::count(**text, '$') + std::int64_t(value ? value->size() : 0) / 256;
        }
        steps -= std::int64_t(values.size()) / 8;
    }

    /// Whether the work that may be done is done; what is added then is passed over.
    bool areEnough() const { return steps <= 0; }

    /// The folders of all playbooks met.
    std::vector<std::filesystem::path> folders() const {
        std::vector<std::filesystem::path> found;
        for (const auto& [book, _] : books)
            if (book->folder) found.push_back(*book->folder);
        return found;
    }

private:
    using Texts = std::vector<const std::optional<std::string>*>;

    void read(const Book& book, Texts& filledIn) {
        for (const Playbook::Layer& layer : book.playbook.layers)
            for (const auto* text : {&layer.image, &layer.video, &layer.slot, &layer.sound}) {
                if (!*text) continue;
                if ((*text)->find('$') == std::string::npos)
                    names.add(**text);
                else
                    filledIn.push_back(text);
            }
    }

    Names& names;
    std::map<const Book*, Texts> books; ///< with their texts that hold parameters
    /// A bound on the work: far more than any video has, and a second or two.
    std::int64_t steps = 100'000;
};

std::filesystem::path withoutLinks(const std::filesystem::path& path) {
    std::error_code failed;
    const auto whole = std::filesystem::absolute(path, failed).lexically_normal();
    auto found = std::filesystem::weakly_canonical(std::filesystem::absolute(path, failed), failed);
    return failed ? whole : found;
}

bool isInside(const std::filesystem::path& path, const std::filesystem::path& folder) {
    return !folder.empty() &&
           std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

/// What sets the file at a path apart from all others, whatever its names. Nothing where there is none.
std::optional<std::pair<dev_t, ino_t>> identity(const std::filesystem::path& path) {
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0) return std::nullopt;
    return std::pair{facts.st_dev, facts.st_ino};
}

std::string quoted(const std::filesystem::path& path) {
    return "“" + Text::repaired(path.filename().string()) + "”";
}

}

OwnFiles::OwnFiles(const Project& project, const Video& video, const Plan& plan) {
    Names names(plan);
    for (const Video& each : project.videos) names.add(each);
    names.add(video);

    LayerNames layers(names);
    for (const auto* all : {&plan.overlays, &plan.generated})
        for (const PlacedOverlay& placed : *all) layers.add(*placed.book, *placed.values);
    for (const PlacedShot& placed : plan.shots)
        if (const auto* book = plan.layout(placed.shot))
            layers.add(**book, layers.areEnough()
                                   ? Values{}
                                   : Plan::values(placed.shot, **book, plan.framing(placed.shot.source)));

    for (const Source& source : project.sources) add(source.path);
    for (const auto& name : names.all()) add(name);
    folders = layers.folders();
    folders.push_back(Library::playbooks());
    if (plan.project) folders.push_back(*plan.project);
    for (auto& folder : folders) folder = withoutLinks(folder);
}

void OwnFiles::refuse(const std::filesystem::path& place) const {
    if (const auto there = identity(place); there && files.contains(*there))
        throw Problem(quoted(place) + " belongs to the project. Export under another name.");
    const auto landing = withoutLinks(SiblingFile::followed(place));
    if (std::ranges::any_of(folders, [&](const auto& folder) { return isInside(landing, folder); }))
        throw Problem(quoted(place) + " would stand inside the project or one of your playbooks. " +
                      "Export to another folder.");
}

void OwnFiles::add(const std::filesystem::path& file) {
    if (const auto there = identity(file)) files.insert(*there);
}

}
