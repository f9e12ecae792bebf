#include "bench/window/LongProject.h"

#include "bench/model/BigProject.h"
#include "bench/playback/Yardstick.h"
#include "core/intake/Intake.h"
#include "core/intake/Sources.h"

#include <fmt/format.h>

namespace murbo::window {
namespace {

constexpr int cuts = 660; ///< with a shot in common and three captions each: 2,000 blocks
constexpr double cutLength = 3.5;

}

Project longProject() {
    auto project = bigProject();
    for (auto& source : project.sources.edit()) source.path = players::longRecording();
    int said = 0;
    for (auto& [source, transcript] : project.transcripts)
        for (auto& line : transcript.lines.edit()) line.text += fmt::format(" {}", ++said);
    Video video{.number = ++project.lastVideo, .title = "All of it"};
    for (int at = 0; at < cuts; ++at) {
        const auto& source = project.sources[static_cast<std::size_t>(at % 10)];
        const double start = 9 + (at / 10) * 54.0;
        video.cuts.edit().push_back({.source = source.id, .start = start, .end = start + cutLength});
    }
    auto& videos = project.videos.edit();
    videos.insert(videos.begin(), video);
    return project;
}

Project fastProject() {
    Project project;
    Sources::add(project, Intake::lengths({players::fastRecording()}), "Stream", Source::Kind::file, 1);
    const auto source = project.sources[0].id;
    Video video{.number = ++project.lastVideo, .title = "Fast"};
    auto& lines = project.transcripts[source].lines.edit();
    for (int at = 0; at < 12; ++at) {
        const double start = 7.3 + (at * 23) % 100;
        video.cuts.edit().push_back({.source = source, .start = start, .end = start + 5});
        for (int part = 0; part < 4; ++part) {
            auto& line = lines.emplace_back();
            line.start = start + part * 1.25;
            line.end = line.start + 1.25;
            line.text = "สวัสดีครับ this is how it looks";
        }
    }
    project.videos.edit().push_back(video);
    return project;
}

Project recordingProject() {
    Project project;
    Sources::add(project, Intake::lengths({players::longRecording()}), "Stream", Source::Kind::file, 100000);
    return project;
}

}
