// Measuring a minute of 1080p beside the ffmpeg program, which only decodes it: one thread, the pictures left
// out that no other needs. CPU time of both, in one run. The files are made once, in MURBO_BENCH_FILES or the
// system's temporary folder.

#include "core/intake/samples/SampleMeasure.h"

#include <cstdlib>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

using namespace murbo;

namespace {

constexpr int seconds = 60;

double cpuOf(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto inSeconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return inSeconds(usage.ru_utime) + inSeconds(usage.ru_stime);
}

template <class Work>
double cpuSpentOn(int who, Work work) {
    const double before = cpuOf(who);
    work();
    return cpuOf(who) - before;
}

std::string quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

void run(const std::string& arguments) {
    const std::string command = "ffmpeg -nostdin -v error -y " + arguments;
    if (std::system(command.c_str()) != 0) throw std::runtime_error(command);
}

/// A minute with a keyframe every 250 pictures, as recorders write it: ten seconds, six times over.
std::filesystem::path minute(const std::string& name, const std::string& picture) {
    const char* given = std::getenv("MURBO_BENCH_FILES");
    const std::filesystem::path folder =
        given ? given : std::filesystem::temp_directory_path() / "murbo-bench";
    std::filesystem::create_directories(folder);
    auto path = folder / (name + ".mp4");
    if (std::filesystem::exists(path)) return path;
    const auto part = folder / (name + "-part.mp4");
    const auto unfinished = folder / (name + "-unfinished.mp4");
    run(picture +
        " -c:v libx264 -preset veryfast -crf 23 -g 250 -keyint_min 250 -sc_threshold 0 -pix_fmt yuv420p " +
        quoted(part));
    run("-stream_loop 5 -i " + quoted(part) + " -c copy -t 60 " + quoted(unfinished));
    std::filesystem::remove(part);
    std::filesystem::rename(unfinished, path);
    return path;
}

void measure(benchmark::State& state, const std::filesystem::path& path) {
    double ours = 1e9;
    double theirs = 1e9;
    for (auto _ : state) {
        ours = std::min(
            ours, cpuSpentOn(RUSAGE_SELF, [&] { benchmark::DoNotOptimize(SampleMeasure::measure(path)); }));
        theirs = std::min(theirs, cpuSpentOn(RUSAGE_CHILDREN, [&] {
                              run("-threads 1 -skip_frame noref -i " + quoted(path) + " -an -f null -");
                          }));
    }
    state.counters["times_real_time"] = seconds / ours;
    state.counters["ffmpeg_times_real_time"] = seconds / theirs;
    state.counters["cpu_ratio"] = ours / theirs;
}

// Detail that moves everywhere, with grain: the hard end.
void filmed(benchmark::State& state) {
    measure(state, minute("filmed",
                          "-f lavfi -i mandelbrot=size=1920x1080:rate=30:start_scale=2:end_scale=0.5:"
                          "end_pts=300 -t 10 -vf noise=alls=3:allf=t,format=yuv420p"));
}
BENCHMARK(filmed)->Unit(benchmark::kMillisecond)->Iterations(2);

// A window or two on a still desktop: what streams of work look like.
void recorded(benchmark::State& state) {
    measure(state, minute("recorded", "-f lavfi -i testsrc2=size=1920x1080:rate=30:duration=10"));
}
BENCHMARK(recorded)->Unit(benchmark::kMillisecond)->Iterations(2);

}
