// A project with ten hours of transcript (20,000 lines), 500 clips and 50 videos, each job beside a yardstick
// that does the least it could cost on the same bytes.
#include "core/model/ModelCodec.h"
#include "core/model/ProjectSummary.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Files.h"

#include <cstring>
#include <set>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

constexpr int sources = 10;
constexpr int linesEach = 2000;
constexpr int clipsEach = 50;
constexpr int videos = 50;
constexpr int cutsEach = 20;
constexpr std::size_t plenty = 1 << 28;

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

/// The big project's package in a folder that goes with the program.
class Package {
public:
    Package() {
        ProjectPackage::write(bigProject(), path, nullptr);
        for (const auto& entry : fs::recursive_directory_iterator(path))
            if (entry.is_regular_file()) files.push_back(Files::readWhole(entry.path(), plenty));
    }
    ~Package() { fs::remove_all(path); }

    const fs::path path = fs::temp_directory_path() / fmt::format("murbo-bench-{}.mbproj", ::getpid());
    std::vector<std::string> files; ///< the bytes of each
};

const Package& package() {
    static const Package made;
    return made;
}

void openAndSummarise(benchmark::State& state) {
    package();
    for (auto _ : state)
        benchmark::DoNotOptimize(ProjectSummary::text(ProjectPackage::read(package().path), {}));
}

void yardstickParseTheSameFiles(benchmark::State& state) {
    package();
    for (auto _ : state)
        for (const auto& file : package().files) benchmark::DoNotOptimize(nlohmann::json::parse(file));
}

void saveAfterAChangeOfOneVideo(benchmark::State& state) {
    package();
    auto previous = bigProject();
    for (auto _ : state) {
        auto project = previous;
        project.videos.edit()[25].title += project.videos[25].title.size() < 20 ? "!" : "";
        project.videos.edit()[25].cuts.edit()[3].end += 0.001;
        ProjectPackage::write(project, package().path, &previous);
        previous = project;
    }
    ProjectPackage::write(bigProject(), package().path, nullptr);
}

void yardstickWriteAndFlushTheSameBytes(benchmark::State& state) {
    const auto bytes = Codec::encode(bigProject());
    const auto path = package().path / "yardstick";
    for (auto _ : state) {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (::write(file, bytes.data(), bytes.size()) < 0 || ::fsync(file) != 0)
            state.SkipWithError("not written");
        ::close(file);
    }
    fs::remove(path);
}

void encodeProject(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Codec::encode(bigProject()));
}

void copyAndCompare(benchmark::State& state) {
    for (auto _ : state) {
        const Project copy = bigProject();
        benchmark::DoNotOptimize(copy == bigProject());
    }
}

void copyChangeAndCompare(benchmark::State& state) {
    for (auto _ : state) {
        Project copy = bigProject();
        copy.videos.edit()[25].title = "Another";
        benchmark::DoNotOptimize(copy == bigProject());
    }
}

void yardstickCopyTheSameBytes(benchmark::State& state) {
    std::string all;
    for (const auto& file : package().files) all += file;
    std::string copy(all.size(), '\0');
    for (auto _ : state) {
        std::memcpy(copy.data(), all.data(), all.size());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(openAndSummarise)->Unit(benchmark::kMillisecond);
BENCHMARK(yardstickParseTheSameFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(saveAfterAChangeOfOneVideo)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(yardstickWriteAndFlushTheSameBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodeProject)->Unit(benchmark::kMillisecond);
BENCHMARK(copyAndCompare)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyChangeAndCompare)->Unit(benchmark::kMicrosecond);
BENCHMARK(yardstickCopyTheSameBytes)->Unit(benchmark::kMicrosecond);

}
