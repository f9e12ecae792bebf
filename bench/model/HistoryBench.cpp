// Undo in a project whose one recording has 20,000 lines: the worst case, since a transcript is kept as a
// whole.
#include "core/model/ModelCodec.h"
#include "core/model/package/History.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

constexpr int lineCount = 20'000;

const UUID& source() {
    static const UUID id = UUID::make();
    return id;
}

Project spoken() {
    Project project;
    auto& lines = project.transcripts[source()].lines.edit();
    for (int at = 0; at < lineCount; ++at) {
        auto& line = lines.emplace_back();
        line.start = at * 1.8;
        line.end = line.start + 1.5;
        line.text = "สวัสดีครับ and then we fell off the cliff again";
    }
    return project;
}

void fixWord(Project& project, int step) {
    auto& line = project.transcripts[source()].lines.edit()[static_cast<std::size_t>(step * 31 % lineCount)];
    line.text += "!";
}

void changeRecordAndUndo(benchmark::State& state) {
    Project project = spoken();
    History history;
    int step = 0;
    for (auto _ : state) {
        const Project before = project;
        fixWord(project, ++step);
        history.record("Fix Words", before, project);
        history.undo(project);
    }
}

/// What every change costs with no history at all: one copy of the lines.
void yardstickChangeAlone(benchmark::State& state) {
    Project project = spoken();
    int step = 0;
    for (auto _ : state) {
        const Project before = project;
        fixWord(project, ++step);
        benchmark::DoNotOptimize(project);
        project = before;
    }
}

void writeAHundredBigSteps(benchmark::State& state) {
    Project project = spoken();
    History history;
    for (int step = 0; step < 100; ++step) {
        const Project before = project;
        fixWord(project, step);
        history.record("Fix Words", before, project);
    }
    const auto folder = fs::temp_directory_path() / ("murbo-history-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    for (auto _ : state) ProjectPackage::writeHistory(history, folder);
    state.counters["MB"] = static_cast<double>(fs::file_size(folder / "undo.json")) / (1 << 20);
    state.counters["steps"] = static_cast<double>(history.past().size());
    fs::remove_all(folder);
}

BENCHMARK(changeRecordAndUndo)->Unit(benchmark::kMillisecond);
BENCHMARK(yardstickChangeAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(writeAHundredBigSteps)->Unit(benchmark::kMillisecond)->Iterations(1);

}
