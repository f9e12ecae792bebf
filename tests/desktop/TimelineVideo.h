#pragma once

#include "app/desktop/timeline/TimelineLayout.h"
#include "app/editor/Editor.h"
#include "core/ai/Said.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QRectF>

#include <gtest/gtest.h>

namespace murbo {

/// A session on a video of three cuts, 4 s, 3 s and 5 s long, of a source that is no file; one line is said
/// in each, and a sound lies at 5 s.
class TimelineVideo {
public:
    TimelineVideo() : editor(made(), {}, std::nullopt, [](const Project&) {}) {
        editor.setSnapping(true); // kept in settings that all tests of this process share
    }

    static Project made() {
        Project project;
        project.groups.edit().push_back({.name = "Footage"});
        const Source source{.group = project.groups[0].id, .path = "/nowhere/rec.mp4", .length = 100};
        project.sources.edit().push_back(source);
        project.clips.edit().push_back({.number = 1, .source = source.id, .start = 0, .end = 100});
        auto& lines = project.transcripts[source.id].lines.edit();
        lines = {{.start = 11, .end = 13, .text = "first line"},
                 {.start = 31, .end = 32, .text = "second line"},
                 {.start = 51, .end = 54, .text = "third line"}};
        Video video{.number = 1, .title = "Video"};
        video.cuts.edit() = {{.source = source.id, .start = 10, .end = 14},
                             {.source = source.id, .start = 30, .end = 33},
                             {.source = source.id, .start = 50, .end = 55}};
        video.look.emplace();
        video.look->sounds.edit().push_back(
            {.file = "media/sounds/boom.wav", .source = source.id, .at = 31, .length = 1});
        project.videos.edit().push_back(video);
        return project;
    }

    TimelineLayout layout() const {
        const Said said(editor.project());
        return TimelineLayout::of({editor.project(),
                                   *editor.video(),
                                   editor.missing(),
                                   said,
                                   [](const std::string&, std::int64_t) { return std::nullopt; },
                                   {},
                                   2});
    }
    const Cut& cut(std::size_t at) const { return editor.video()->cuts[at]; }
    /// What the last step is called, and how many there are.
    std::string step() const { return editor.history().undoName().value_or(""); }
    std::size_t steps() const { return editor.history().past().size(); }

    TemporaryFolder folder;
    Environment config{"XDG_CONFIG_HOME", folder.path / "config"};
    Environment home{"HOME", folder.path / "home"};
    Editor editor;
};

/// The fixture of tests that have a session of their own, `video`.
template <class Session>
class OnVideo : public testing::Test {
protected:
    Session video;
};

}
