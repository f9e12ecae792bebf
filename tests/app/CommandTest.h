#pragma once

#include "core/model/package/ProjectPackage.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Program.h"

#include <gmock/gmock.h>

namespace murbo {

/// Two seconds of moving picture with a tone, made once: 320x180, 25 pictures a second.
inline const std::filesystem::path& sampleMovie() {
    static const TemporaryFolder folder;
    static const auto movie = [] {
        const auto path = folder / "sample.mp4";
        shell(
            "ffmpeg -nostdin -y -f lavfi -i testsrc2=s=320x180:r=25:d=2 -f lavfi -i sine=d=2 -c:v libx264 "
            "-preset ultrafast -c:a aac -shortest " +
            quoted(path));
        return path;
    }();
    return movie;
}

/// A project with the sample movie in it, under a name that needs care wherever it is printed.
class CommandTest : public testing::Test {
protected:
    static inline const std::string name = "ภาพ \"1\" 'x' 📱\n.mp4";

    CommandTest() {
        std::filesystem::copy_file(sampleMovie(), movie);
        murboWith({"--new", project});
    }

    void addVideo(int cuts = 1) {
        murboWith({"--add-files", project, movie});
        auto read = ProjectPackage::read(project);
        const auto source = read.sources[0].id;
        Video video{.number = 1, .title = "One"};
        video.cuts = std::vector<Cut>(cuts, {.source = source, .start = 0.5, .end = 1});
        read.videos.edit().push_back(video);
        read.transcripts[source].lines.edit() = {{.start = 0.5, .end = 1, .text = "สวัสดี 👋"}};
        ProjectPackage::write(read, project, nullptr);
    }

    std::string projectFile() const { return contentsOf(project / "project.json"); }

    TemporaryFolder folder;
    std::filesystem::path project = folder / "p.mbproj";
    std::filesystem::path movie = folder / name;
};

}
