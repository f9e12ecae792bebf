#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "platform/store/SettingsStore.h"
#include "tests/Approved.h"
#include "tests/desktop/Tour.h"

#include <algorithm>

using namespace murbo;

namespace {

/// Leaves nothing of what tests have set; answers the file.
std::filesystem::path withoutSettings() {
    const auto file = std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "murbo/settings.json";
    const auto kept = TourText::json::parse(contentsOf(file), nullptr, false);
    if (kept.is_object())
        for (const auto& [key, value] : kept.items()) SettingsStore::standard().remove(key);
    return file;
}

/// The names of the tours, most of them after the source that they go through.
std::vector<std::string> tours() {
    std::vector<std::string> names;
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(MURBO_TESTS) / "desktop/approved"))
        names.push_back(file.path().stem().string());
    std::ranges::sort(names);
    return names;
}

class Tours : public testing::TestWithParam<std::string> {
protected:
    ~Tours() override {
        Library::setOverride(std::nullopt);
        Playbooks::dropListing();
        withoutSettings();
    }
};

}

/// The lines of a tour stand in its approved text, each before what comes of it: a new one is put in there.
TEST_P(Tours, areAsApproved) {
    MURBO_NEEDS_FFMPEG();
    const auto settings = withoutSettings();
    const auto name = "desktop/approved/" + GetParam() + ".txt";
    const auto tests = std::filesystem::path(MURBO_TESTS);
    WindowOfProject window;
    ASSERT_TRUE(window.opened);
    Library::setOverride(window.folder / "library");
    Playbooks::dropListing();
    Tour tour(window, settings);
    const auto project = tour.project(tests / "desktop/tours/project.json");
    window.editor().apply([&](Project& shown) { shown = project; });
    window.editor().setMissing({project.sources[3].id});
    expectApproved(name, tour.of(contentsOf(tests / name)));
}

INSTANTIATE_TEST_SUITE_P(Desktop, Tours, testing::ValuesIn(tours()),
                         [](const auto& tour) { return tour.param; });
