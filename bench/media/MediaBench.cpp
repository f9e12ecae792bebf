// Reading and writing media beside the ffmpeg program doing the same, as ratios within one run: CPU time, and
// wall time where that is what somebody waits for. The files are made once, in MURBO_BENCH_FILES or the
// system's temporary folder.

#include "platform/media/FrameReader.h"
#include "platform/media/SoundReader.h"

#include <chrono>
#include <cstdlib>
#include <random>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

using namespace murbo;

namespace {

struct Spent {
    double cpu = 0; ///< seconds
    double wall = 0;
};

double cpuOf(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + time.tv_usec * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

template <class Work>
Spent spentOn(int who, Work work) {
    const double cpu = cpuOf(who);
    const auto begin = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    return {cpuOf(who) - cpu, wall.count()};
}

std::string quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

void run(const std::string& arguments) {
    const std::string command = "ffmpeg -nostdin -v error -y " + arguments;
    if (std::system(command.c_str()) != 0) throw std::runtime_error(command);
}

std::filesystem::path made(const std::string& name, const std::string& arguments) {
    const char* given = std::getenv("MURBO_BENCH_FILES");
    const std::filesystem::path folder =
        given ? given : std::filesystem::temp_directory_path() / "murbo-bench";
    std::filesystem::create_directories(folder);
    const auto path = folder / name;
    if (std::filesystem::exists(path)) return path;
    const auto unfinished = folder / ("unfinished-" + name);
    run(arguments + " " + quoted(unfinished));
    std::filesystem::rename(unfinished, path);
    return path;
}

// 20 s at 1080p with a keyframe every 250 pictures, as recorders write it.
std::filesystem::path clip() {
    return made("clip.mp4",
                "-f lavfi -i testsrc2=s=1920x1080:r=30:d=20 -f lavfi -i anoisesrc=d=20:a=0.2:c=pink "
                "-c:v libx264 -preset medium -crf 38 -g 250 -pix_fmt yuv420p -c:a aac -b:a 128k");
}

// The same over and over, for three hours.
std::filesystem::path threeHours(const std::string& ending) {
    return made("three-hours." + ending, "-stream_loop 539 -i " + quoted(clip()) + " -c copy");
}

constexpr double threeHoursLong = 3 * 3600;

void report(benchmark::State& state, const Spent& ours, const Spent& theirs, double units) {
    state.counters["ours_cpu_ms"] = ours.cpu * 1000 / units;
    state.counters["ffmpeg_cpu_ms"] = theirs.cpu * 1000 / units;
    state.counters["cpu_ratio"] = ours.cpu / theirs.cpu;
    state.counters["ours_wall_ms"] = ours.wall * 1000 / units;
    state.counters["ffmpeg_wall_ms"] = theirs.wall * 1000 / units;
    state.counters["wall_ratio"] = ours.wall / theirs.wall;
}

void sum(Spent& all, const Spent& one) {
    all.cpu += one.cpu;
    all.wall += one.wall;
}

// One exact picture anywhere: the file opened anew each time (`opening`), as the ffmpeg program must, or kept
// open.
void still(benchmark::State& state, const std::string& ending, bool opening) {
    const auto path = threeHours(ending);
    std::mt19937 random(3);
    std::uniform_real_distribution<double> anywhere(0, threeHoursLong);
    FrameReader kept = FrameReader::open(path, FrameReader::Purpose::stills);
    Spent ours;
    Spent theirs;
    for (auto _ : state) {
        const double time = anywhere(random);
        sum(ours, spentOn(RUSAGE_SELF, [&] {
                if (opening) kept = FrameReader::open(path, FrameReader::Purpose::stills);
                benchmark::DoNotOptimize(kept.at(time));
            }));
        sum(theirs, spentOn(RUSAGE_CHILDREN, [&] {
                run("-ss " + std::to_string(time) + " -i " + quoted(path) +
                    " -map 0:v:0 -frames:v 1 -f null -");
            }));
    }
    report(state, ours, theirs, static_cast<double>(state.iterations()));
}

void forward(benchmark::State& state) {
    const auto path = clip();
    Spent ours;
    Spent theirs;
    double pictures = 0;
    for (auto _ : state) {
        sum(ours, spentOn(RUSAGE_SELF, [&] {
                FrameReader reader = FrameReader::open(path);
                while (reader.next()) ++pictures;
            }));
        sum(theirs, spentOn(RUSAGE_CHILDREN, [&] { run("-i " + quoted(path) + " -map 0:v:0 -f null -"); }));
    }
    report(state, ours, theirs, pictures);
}

void sound(benchmark::State& state) {
    const auto path = clip();
    Spent ours;
    Spent theirs;
    std::vector<float> piece(9600);
    for (auto _ : state) {
        sum(ours, spentOn(RUSAGE_SELF, [&] {
                SoundReader reader = SoundReader::open(path);
                for (std::int64_t at = 0; reader.read(at, piece) > 0;)
                    at += static_cast<std::int64_t>(piece.size() / 2);
            }));
        sum(theirs, spentOn(RUSAGE_CHILDREN, [&] {
                run("-i " + quoted(path) + " -map 0:a:0 -ac 2 -ar 48000 -c:a pcm_f32le -f null -");
            }));
    }
    report(state, ours, theirs, 20.0 * static_cast<double>(state.iterations()));
}

void soundAnywhere(benchmark::State& state) {
    SoundReader reader = SoundReader::open(threeHours("mp4"));
    std::mt19937 random(3);
    std::vector<float> piece(9600);
    for (auto _ : state) reader.read(random() % (Sound::rate * 10000), piece);
}

}

BENCHMARK_CAPTURE(still, opened_mp4, std::string("mp4"), true)->Unit(benchmark::kMillisecond)->Iterations(12);
BENCHMARK_CAPTURE(still, kept_mp4, std::string("mp4"), false)->Unit(benchmark::kMillisecond)->Iterations(12);
BENCHMARK_CAPTURE(still, opened_mkv, std::string("mkv"), true)->Unit(benchmark::kMillisecond)->Iterations(12);
BENCHMARK_CAPTURE(still, kept_mkv, std::string("mkv"), false)->Unit(benchmark::kMillisecond)->Iterations(12);
BENCHMARK(forward)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(sound)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(soundAnywhere)->Unit(benchmark::kMillisecond)->Iterations(20);
