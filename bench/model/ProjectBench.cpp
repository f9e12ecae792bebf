// A project with ten hours of transcript (20,000 lines), 500 clips and 50 videos, each job beside a yardstick
// that does the least it could cost on the same bytes.
#include "bench/model/BigProject.h"
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

constexpr std::size_t plenty = 1 << 28;

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
