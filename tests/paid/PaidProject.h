#pragma once

#include "core/model/package/Activity.h"
#include "core/model/package/History.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/ScriptedModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Program.h"

#include <initializer_list>

#include <fmt/ranges.h>
#include <gmock/gmock.h>

namespace murbo {

/// A project with one recording that is no file. Its clips C01 to C04 lie 100 s apart and say three lines
/// each; in C03 nothing is said, and C04 is rejected. V1 plays the first two lines of C01. Commands of the
/// built program run on it, with a model that the test scripts and settings of their own.
class PaidProject : public testing::Test {
protected:
    static inline const std::string key = "sk-or-v1-0123456789abcdef";

    PaidProject() {
        Project project;
        project.groups.edit().push_back({.name = "Stream"});
        const Source source{.group = project.groups[0].id,
                            .path = "/nowhere/rec.mp4",
                            .length = 3600,
                            .note = "A stream with Ann"};
        project.sources.edit().push_back(source);
        auto& lines = project.transcripts[source.id].lines.edit();
        for (int number = 1; number <= 4; ++number) {
            const double start = number * 100.0;
            project.clips.edit().push_back(
                {.number = number, .source = source.id, .start = start, .end = start + 20});
            if (number == 3) continue;
            for (int n = 0; n < 3; ++n)
                lines.push_back({.start = start + 1 + 3 * n,
                                 .end = start + 3 + 3 * n,
                                 .text = fmt::format("words {} of clip {}", n + 1, number)});
        }
        project.clips.edit()[3].rating = -1;
        project.lastClip = 4;
        project.videos.edit().push_back(
            {.number = 1,
             .title = "The fall",
             .cuts = std::vector<Cut>{{.source = source.id, .start = 101, .end = 106}}});
        project.lastVideo = 1;
        ProjectPackage::write(project, package, nullptr);
    }

    std::string environment(const std::string& also = "") const {
        return fmt::format(
            "HOME={0} XDG_CONFIG_HOME={0}/config XDG_STATE_HOME={0}/state OPENROUTER_API_KEY={1} "
            "MURBO_OPENROUTER={2} DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere {3}",
            quoted(folder.path), key, model.base(), also);
    }

    /// Runs a command that the owner agrees to.
    Ran run(std::vector<std::string> words, const std::string& also = "") const {
        words.emplace_back("--yes");
        return murboWith(words, environment(also));
    }

    Project project() const { return ProjectPackage::read(package); }
    std::vector<Activity> log() const { return Activity::read(package); }
    std::string projectFile() const { return contentsOf(package / "project.json"); }
    /// The log in short: each entry's title and state.
    std::string logged() const {
        std::vector<std::string> lines;
        for (const auto& entry : log()) lines.push_back(entry.title + ", " + entry.state);
        return fmt::format("{}", fmt::join(lines, "; "));
    }
    /// The name of the last undo step; undoing it must give the project before.
    std::string lastStep() const {
        const auto history = ProjectPackage::readHistory(package);
        return history.undoName().value_or("");
    }

    /// A request as it should read, word for word.
    static std::string expected(const std::string& name) {
        return contentsOf(std::filesystem::path(MURBO_TESTS) / "paid/requests" / (name + ".txt"));
    }

    TemporaryFolder folder;
    const std::filesystem::path package = folder / "p.mbproj";
    ScriptedModel model;
};

}
