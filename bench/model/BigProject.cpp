#include "bench/model/BigProject.h"

#include <fmt/format.h>

namespace murbo {
namespace {

constexpr int sources = 10;
constexpr int linesEach = 2000;
constexpr int clipsEach = 50;
constexpr int videos = 50;
constexpr int cutsEach = 20;

void addSource(Project& project, int number) {
    Source source;
    source.group = project.groups[0].id;
    source.path = fmt::format("/home/someone/Videos/recording {}.mp4", number);
    source.length = 3600;
    auto& lines = project.transcripts[source.id].lines.edit();
    for (int at = 0; at < linesEach; ++at) {
        auto& line = lines.emplace_back();
        line.start = at * 1.8 + 0.123;
        line.end = line.start + 1.517;
        line.text = "สวัสดีครับ and then we fell off the cliff again";
    }
    for (int at = 0; at < clipsEach; ++at) {
        auto& clip = project.clips.edit().emplace_back();
        clip.number = ++project.lastClip;
        clip.source = source.id;
        clip.start = at * 72;
        clip.end = clip.start + 60.25;
        clip.marks = {clip.start + 5.5};
        clip.summary = Clip::Summary{"The big fall", "They fall and laugh. Then it goes on.", "hype"};
    }
    project.sources.edit().push_back(source);
}

void addVideo(Project& project) {
    auto& video = project.videos.edit().emplace_back();
    video.number = ++project.lastVideo;
    video.title = "A video";
    auto& look = video.look.emplace();
    for (int at = 0; at < cutsEach; ++at) {
        const auto& source = project.sources[static_cast<std::size_t>(at % sources)];
        auto& cut = video.cuts.edit().emplace_back();
        cut.source = source.id;
        cut.start = at * 10.1;
        cut.end = cut.start + 3.3;
        auto& shot = look.shots.edit().emplace_back();
        shot.source = source.id;
        shot.at = cut.start;
        auto& line = look.captions.lines.edit().emplace_back();
        line.line = project.transcript(source.id).lines[static_cast<std::size_t>(at)].id;
        line.stress = {1, 2};
    }
}

}

const Project& bigProject() {
    static const Project project = [] {
        Project made;
        made.groups.edit().emplace_back().name = "Stream";
        for (int number = 0; number < sources; ++number) addSource(made, number);
        for (int number = 0; number < videos; ++number) addVideo(made);
        return made;
    }();
    return project;
}

}
