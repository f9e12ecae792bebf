#include "core/intake/samples/Loudness.h"
#include "core/intake/transcription/Sound.h"
#include "core/intake/transcription/Transcription.h"
#include "core/intake/transcription/Whisper.h"
#include "platform/base/Tool.h"
#include "tests/TemporaryFolder.h"

#include <cstdlib>

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sys/resource.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

constexpr double hour = 3600;

/// Processor seconds used so far: the machine may be busy with other things.
double used(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

const TemporaryFolder& folder() {
    static const TemporaryFolder made;
    return made;
}

/// An hour of a talking recorder's sound: AAC, 48 kHz, stereo.
const fs::path& recording() {
    static const fs::path file = [] {
        const auto minute = folder() / "minute.m4a";
        auto made = folder() / "hour.m4a";
        Tool::run("ffmpeg",
                  {"-f", "lavfi", "-i",
                   "aevalsrc=0.4*sin(2*PI*t*(200+100*sin(t)))*sin(3*t)|0.3*sin(2*PI*t*300)*sin(2*t):s=48000",
                   "-t", "60", "-c:a", "aac", "-b:a", "160k", minute});
        Tool::run("ffmpeg", {"-stream_loop", "-1", "-i", minute, "-t", "3600", "-c", "copy", made});
        return made;
    }();
    return file;
}

}

static void anHourToWav(benchmark::State& state) {
    recording();
    for (auto _ : state) {
        const auto before = used(RUSAGE_SELF);
        Sound::wav(recording(), 0, hour);
        state.SetIterationTime(used(RUSAGE_SELF) - before);
    }
}
BENCHMARK(anHourToWav)->UseManualTime()->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

/// The yardstick: the ffmpeg program making the same file.
static void anHourToWavByFFmpeg(benchmark::State& state) {
    recording();
    for (auto _ : state) {
        const auto before = used(RUSAGE_CHILDREN);
        Tool::run("ffmpeg", {"-y", "-i", recording(), "-ac", "1", "-ar", "16000", "-c:a", "pcm_s16le",
                             folder() / "hour.wav"});
        state.SetIterationTime(used(RUSAGE_CHILDREN) - before);
    }
}
BENCHMARK(anHourToWavByFFmpeg)->UseManualTime()->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

static void loudnessOfAnHour(benchmark::State& state) {
    recording();
    for (auto _ : state) {
        const auto before = used(RUSAGE_SELF);
        benchmark::DoNotOptimize(Loudness::measure(recording(), Loudness::perSecond));
        state.SetIterationTime(used(RUSAGE_SELF) - before);
    }
}
BENCHMARK(loudnessOfAnHour)->UseManualTime()->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

/// The yardstick: the ffmpeg program decoding the same sound to 8 kHz mono.
static void anHourDecodedByFFmpeg(benchmark::State& state) {
    recording();
    for (auto _ : state) {
        const auto before = used(RUSAGE_CHILDREN);
        Tool::run("ffmpeg", {"-i", recording(), "-ac", "1", "-ar", "8000", "-f", "null", "-"});
        state.SetIterationTime(used(RUSAGE_CHILDREN) - before);
    }
}
BENCHMARK(anHourDecodedByFFmpeg)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond);

/// What transcribing costs beside the tool's own time, even where a tiny model makes that short.
static void besideWhisper(benchmark::State& state) {
    const auto model = fs::path(MURBO_SPEECH_MODELS) / "ggml-espeak-q8_0.bin";
    Source source;
    source.path = fs::path(MURBO_FOOTAGE) / "speech-espeak.wav";
    setenv("PATH", (std::string(std::getenv("PATH")) + ":" MURBO_TOOLS).c_str(), 1);
    if (!fs::exists(model) || !Tool::find("whisper-cli"))
        return state.SkipWithError("no whisper-cli, or no model");
    setenv("HOME", folder().path.c_str(), 1);
    fs::create_directories(Whisper::standardModel().parent_path());
    if (!fs::exists(Whisper::standardModel())) fs::create_symlink(model, Whisper::standardModel());
    double ours = 0, whole = 0;
    for (auto _ : state) {
        const auto self = used(RUSAGE_SELF);
        const auto tool = used(RUSAGE_CHILDREN);
        Transcription::lines(source, 0, 25, "en", "", Whisper::on(model));
        ours += used(RUSAGE_SELF) - self;
        whole += used(RUSAGE_CHILDREN) - tool;
        state.SetIterationTime(used(RUSAGE_SELF) - self);
    }
    state.SetLabel(fmt::format("{:.2f} % of whisper's own", ours / whole * 100));
}
BENCHMARK(besideWhisper)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
