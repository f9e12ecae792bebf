#include "bench/playback/Yardstick.h"

#include "app/editor/playback/PlayerClock.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/media/SoundReader.h"

#include <cmath>
#include <cstdlib>

#include <fmt/format.h>
#include <sys/resource.h>

namespace murbo::players {
namespace {

/// Makes a file of that name once by the ffmpeg program.
std::filesystem::path made(const std::string& name, const std::string& arguments) {
    const auto folder = std::filesystem::temp_directory_path() / "murbo-bench";
    Files::createFolder(folder);
    const auto path = folder / name;
    if (std::filesystem::exists(path)) return path;
    const auto whole = folder / ("whole-" + name);
    const auto command = fmt::format("ffmpeg -nostdin -v error -y {} '{}'", arguments, whole.string());
    if (std::system(command.c_str()) != 0) throw Problem("This did not work: " + command);
    std::filesystem::rename(whole, path);
    return path;
}

constexpr auto encoded =
    "-c:v libx264 -preset veryfast -g 250 -keyint_min 250 -sc_threshold 0 -pix_fmt yuv420p";

}

void Watch::show(const PlayerFrame& frame) {
    const double now = PlayerClock::computer();
    if (watching) watching(frame, now);
    const std::lock_guard hold(lock);
    last = frame;
    at = now;
    ++count;
    changed.notify_all();
}

double Watch::wait(const std::function<bool(const PlayerFrame&)>& wanted) {
    std::unique_lock hold(lock);
    changed.wait(hold, [&] { return count > 0 && wanted(last); });
    return at;
}

bool ClockedOutput::start(Fill fill) {
    begun = PlayerClock::computer();
    thread = std::jthread([this, fill = std::move(fill)](const std::stop_token& ending) {
        constexpr int frames = Sound::rate / 100;
        std::vector<float> block(2 * frames);
        for (std::int64_t number = 0; !ending.stop_requested(); ++number) {
            const double place = static_cast<double>(number) / 100;
            while (heard() < place - 0.05 && !ending.stop_requested())
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            fill(block);
            hears(block, begun + place);
        }
    });
    return true;
}

void ClockedOutput::stop() {
    thread = {};
}

double ClockedOutput::heard() const {
    return PlayerClock::computer() - begun;
}

double cpu() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

std::filesystem::path fastRecording() {
    const auto part =
        made("fast-part.mp4", fmt::format("-f lavfi -i testsrc2=size=1920x1080:rate=60 -f lavfi -i "
                                          "sine=frequency=330:sample_rate=48000 -t 10 -vf "
                                          "noise=alls=3:allf=t {} -crf 24 -c:a aac",
                                          encoded));
    return made("fast.mp4", fmt::format("-stream_loop 11 -i '{}' -c copy", part.string()));
}

std::filesystem::path longRecording() {
    const auto part = made(
        "long-part.mp4", fmt::format("-f lavfi -i testsrc=size=1920x1080:rate=30 -t 25 {} -crf 32", encoded));
    return made("long.mp4", fmt::format("-stream_loop 431 -i '{}' -c copy", part.string()));
}

std::filesystem::path flashing(int seconds) {
    return made(
        fmt::format("flashing-{}.mp4", seconds),
        fmt::format(
            "-f lavfi -i color=black:size=640x360:rate=30 -f lavfi -i "
            "\"aevalsrc='if(lt(mod(t,1),0.002),0.9,0)':s=48000\" -t {} -vf "
            "\"drawbox=c=white:t=fill:enable='lt(mod(t+0.001,1),0.1)'\" {} -crf 30 -c:a pcm_s16le -f mov",
            seconds, encoded));
}

}
