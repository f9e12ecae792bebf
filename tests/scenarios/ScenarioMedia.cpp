#include "tests/scenarios/ScenarioMedia.h"

#include "core/intake/Sources.h"

namespace murbo::scenario {
namespace {

const std::string packed = "-pix_fmt yuv420p -c:v libx264 -preset ultrafast -g 30 -c:a aac -shortest";

}

std::filesystem::path bars() {
    return made::file("bars.mp4",
                      "-f lavfi -i testsrc=size=320x180:rate=30:duration=6 -f lavfi -i "
                      "sine=frequency=440:duration=6 " +
                          packed);
}

std::filesystem::path talk() {
    return made::file("talk.mp4",
                      "-f lavfi -i testsrc2=size=320x180:rate=30:duration=12 -f lavfi -i "
                      "\"sine=frequency=220:duration=12,volume='if(between(t,4,8),0,1)':eval=frame\" " +
                          packed);
}

std::filesystem::path plain() {
    return made::file("plain.mp4",
                      "-f lavfi -i color=c=teal:size=320x180:rate=30:duration=4 -f lavfi -i "
                      "sine=frequency=330:duration=4 " +
                          packed);
}

Project footage() {
    Project project;
    const auto sources =
        Sources::add(project, Intake::lengths({bars(), talk(), plain()}), "Footage", Source::Kind::file);
    project.transcripts[sources.at(1)].lines.edit() = {{.start = 0.4, .end = 1.4, .text = "here we go"},
                                                       {.start = 1.6, .end = 3.9, .text = "down it falls"},
                                                       {.start = 8.1, .end = 10, .text = "and up again"},
                                                       {.start = 10.2, .end = 11.8, .text = "the end"}};
    return project;
}

Project cutVideo() {
    auto project = footage();
    Video video{.number = 1, .title = "Falls"};
    video.cuts.edit() = {{.source = project.sources[0].id, .start = 1, .end = 3},
                         {.source = project.sources[1].id, .start = 0.5, .end = 2.5},
                         {.source = project.sources[2].id, .start = 1, .end = 3}};
    project.videos.edit().push_back(video);
    project.lastVideo = 1;
    return project;
}

}
