// What the players of a session cost and how quick they are. Each measurement is a process of its own:
//
//     bench_playback          all of them
//     bench_playback NAME…    those of these names
//
// MURBO_BENCH_SECONDS is how long is played (60).

#include "app/editor/playback/Player.h"
#include "bench/job/Measured.h"
#include "bench/playback/Yardstick.h"
#include "core/render/export/PictureFeed.h"
#include "platform/media/FrameReader.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <set>
#include <thread>

#include <fmt/format.h>

namespace murbo::players {
namespace {

double playedSeconds() {
    const char* text = std::getenv("MURBO_BENCH_SECONDS");
    return text ? std::max(std::atof(text), 2.0) : 60;
}

template <class... Arguments>
void say(const char* name, fmt::format_string<Arguments...> words, Arguments&&... arguments) {
    fmt::print("{:<24}{}\n", name, fmt::format(words, std::forward<Arguments>(arguments)...));
    std::fflush(stdout);
}

void sleep(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

double median(std::vector<double> values) {
    std::ranges::nth_element(values, values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
    return values[values.size() / 2];
}

std::string spread(std::vector<double> milliseconds) {
    std::ranges::sort(milliseconds);
    return fmt::format("median {:.1f} ms, of {} the worst {:.1f} ms", median(milliseconds),
                       milliseconds.size(), milliseconds.back());
}

/// Cuts of five seconds in a split frame, with a new popping caption every 1.25 s, and music, of footage at
/// 60 frames a second.
PlayerItem split(std::optional<double> frameRate = std::nullopt) {
    constexpr double cutLength = 5;
    constexpr double captionLength = 1.25;
    Project project;
    Source source;
    source.path = fastRecording();
    source.length = 120;
    project.sources.edit().push_back(source);
    Video video;
    video.look.emplace();
    auto& lines = project.transcripts[source.id].lines.edit();
    for (int cut = 0; cut < 12; ++cut) {
        const double start = 7.3 + (cut * 23) % 100;
        video.cuts.edit().push_back({.source = source.id, .start = start, .end = start + cutLength});
        for (int part = 0; part < 4; ++part) {
            Line line;
            line.start = start + part * captionLength;
            line.end = line.start + captionLength;
            line.text = fmt::format("สวัสดีครับ this is how it looks {}", cut * 4 + part);
            lines.push_back(line);
        }
    }
    SoundCue music;
    music.file = std::filesystem::path(MURBO_FOOTAGE) / "sounds/music.mp3";
    music.source = source.id;
    music.at = video.cuts.front().start;
    video.look->music.edit().push_back(music);
    auto item = PlayerItem::video(video, project, {}, "", std::nullopt);
    if (frameRate) item.composition = VideoComposition::make(video, project, {}, "", std::nullopt, frameRate);
    return item;
}

PlayerItem whole(const std::filesystem::path& file, double length) {
    Source source;
    source.path = file;
    source.length = length;
    return PlayerItem::footage(source);
}

/// A sound device that nobody hears.
std::unique_ptr<SoundOutput> unheard() {
    return std::make_unique<ClockedOutput>([](std::span<const float>, double) {});
}

void play(const char* name, const PlayerItem& item, int width, int height) {
    const auto watch = std::make_shared<Watch>();
    const double length = std::min(item.composition.length(), playedSeconds());
    const double before = cpu();
    PictureFeed feed(item.composition);
    for (std::int64_t frame = 0; frame < std::llround(length * item.composition.rate); ++frame)
        feed.frame(frame);
    const double decoding = cpu() - before;
    Player player(PlayerClock::computer, unheard);
    player.setSink(watch, width, height);
    player.load(item, 0);
    watch->wait([](const auto& frame) { return frame.exact; });
    const double start = cpu();
    player.run(1);
    sleep(length);
    const double used = cpu() - start;
    const auto counts = player.counts();
    player.stand(0);
    say(name, "{} shown, {} dropped ({:.2f} %), {:.0f} % of a core beside decoding ({:.0f} %), {:.0f} MB",
        counts.shown, counts.dropped,
        100.0 * static_cast<double>(counts.dropped) / static_cast<double>(counts.shown + counts.dropped),
        100 * (used - decoding) / length, 100 * decoding / length, peakMegabytes());
}

/// What playing costs on a machine that is busy otherwise: the clock waits for each picture.
void cost(const char* name, const PlayerItem& item, int width, int height) {
    const auto frames = std::min<std::int64_t>(std::llround(playedSeconds()) * item.composition.rate,
                                               item.composition.frameCount());
    const double length = static_cast<double>(frames) / item.composition.rate;
    double before = cpu();
    PictureFeed feed(item.composition);
    for (std::int64_t frame = 0; frame < frames; ++frame) feed.frame(frame);
    const double decoding = (cpu() - before) / length;
    before = cpu();
    SoundFeed sound(item.sound, item.composition.length());
    sound.start(0, 1);
    std::vector<float> block(2 * 480);
    for (double at = 0; at < length; at += 0.01) sound.read(block);
    const double sounding = (cpu() - before) / length;
    std::atomic<double> now = 0;
    const auto watch = std::make_shared<Watch>();
    Player player([&] { return now.load(); });
    player.setSink(watch, width, height);
    player.load(item, 0);
    watch->wait([](const auto& frame) { return frame.exact; });
    before = cpu();
    player.run(1);
    for (std::int64_t frame = 1; frame < frames; ++frame) {
        now = static_cast<double>(frame) / item.composition.rate;
        watch->wait([&](const auto& shown) { return shown.number == frame; });
    }
    const double showing = (cpu() - before) / length;
    say(name, "{:.0f} % of a core for decoding, {:.0f} % beside it, {:.1f} % for sound; {} of {} dropped",
        100 * decoding, 100 * (showing - decoding), 100 * sounding, player.counts().dropped, frames);
}

void refresh() {
    const auto item = split();
    const auto watch = std::make_shared<Watch>();
    Player player;
    player.setSink(watch, 540, 960);
    player.load(item, 1);
    watch->wait([](const auto& frame) { return frame.exact; });
    sleep(1);
    std::vector<double> took;
    for (int turn = 0; turn < 30; ++turn) {
        auto plan = *item.composition.box->plan();
        plan.cues.front().text = fmt::format("A changed caption {}", turn);
        const auto shown = watch->shown();
        const double start = PlayerClock::computer();
        player.refresh(std::move(plan));
        took.push_back(1000 * (watch->wait([&](const auto&) { return watch->shown() > shown; }) - start));
        sleep(0.02);
    }
    say("refresh", "a changed caption: {} (aim: 30 ms)", spread(took));
}

void step() {
    const auto item = split();
    const auto watch = std::make_shared<Watch>();
    Player player;
    player.setSink(watch, 540, 960);
    player.load(item, 2);
    watch->wait([](const auto& frame) { return frame.exact; });
    sleep(1);
    std::int64_t frame = 2 * item.composition.rate;
    for (const int way : {1, -1}) {
        std::vector<double> took;
        for (int turn = 0; turn < 40; ++turn) {
            frame += way;
            const double start = PlayerClock::computer();
            player.stand((static_cast<double>(frame) + 0.1) / item.composition.rate);
            took.push_back(1000 *
                           (watch->wait([&](const auto& shown) { return shown.number == frame; }) - start));
            sleep(0.07);
        }
        say(way > 0 ? "step" : "step back", "{} (aim: {} ms)", spread(took), way > 0 ? 20 : 60);
    }
}

void seek() {
    const auto path = longRecording();
    const auto watch = std::make_shared<Watch>();
    Player player;
    player.setSink(watch, 960, 540);
    player.load(whole(path, 10800), 0);
    watch->wait([](const auto& frame) { return frame.exact; });
    auto reader = FrameReader::open(path);
    std::vector<double> ratios;
    std::vector<double> took;
    for (int turn = 0; turn < 15; ++turn) {
        const double at = std::fmod(turn * 4391.37 + 17.123, 10790);
        sleep(0.5);
        const double start = cpu();
        reader.at(at);
        const double alone = cpu() - start;
        const double asked = PlayerClock::computer();
        const double before = cpu();
        player.stand(at);
        took.push_back(watch->wait([&](const auto& frame) { return frame.exact && frame.time == at; }) -
                       asked);
        ratios.push_back((cpu() - before) / alone);
        took.back() *= 1000;
    }
    say("seek", "in 3 hours: {}; {:.2f} times the CPU of the decoder alone (median; aim: 1.2)", spread(took),
        median(ratios));
}

void skim() {
    const auto watch = std::make_shared<Watch>();
    Player player;
    player.setSink(watch, 960, 540);
    player.load(whole(longRecording(), 10800), 0);
    watch->wait([](const auto& frame) { return frame.exact; });
    const auto before = watch->shown();
    const double start = PlayerClock::computer();
    const double startedWith = cpu();
    constexpr int moves = 200;
    for (int move = 0; move < moves; ++move) {
        player.skim(20 + move * 41.3);
        sleep(0.02);
    }
    const double passed = PlayerClock::computer() - start;
    const auto shown = static_cast<double>(watch->shown() - before);
    say("skim", "{:.0f} pictures a second of {:.0f} asked for (aim: 25), {:.0f} ms CPU each", shown / passed,
        moves / passed, 1000 * (cpu() - startedWith) / shown);
}

void backward() {
    const auto watch = std::make_shared<Watch>();
    const auto item = whole(fastRecording(), 120);
    for (const int speed : {1, 2, 8}) {
        Player player;
        player.setSink(watch, 960, 540);
        player.load(item, 100);
        watch->wait([](const auto& frame) { return frame.exact; });
        sleep(0.5);
        const double seconds = std::min(10.0, playedSeconds());
        const double start = cpu();
        player.run(-speed);
        sleep(seconds);
        const auto counts = player.counts();
        say("backward", "at {} times: {:.0f} pictures a second, {} dropped, {:.0f} % of a core, {:.0f} MB",
            speed, static_cast<double>(counts.shown) / seconds, counts.dropped,
            100 * (cpu() - start) / seconds, peakMegabytes());
    }
}

/// The sound device is a clock of our own: what a real one adds between its clock and the ear is not in this.
void sync() {
    const auto seconds = static_cast<int>(playedSeconds());
    const auto item = whole(flashing(seconds), seconds);
    const auto watch = std::make_shared<Watch>();
    std::mutex lock;
    std::map<int, double> flashes;
    std::map<int, double> clicks;
    bool lit = true;
    watch->watching = [&](const PlayerFrame& frame, double now) {
        const bool white =
            frame.picture.row(frame.picture.height() / 2)[4 * (frame.picture.width() / 2)] > 128;
        const std::lock_guard hold(lock);
        if (white && !lit) flashes.emplace(static_cast<int>(std::lround(frame.time)), now);
        lit = white;
    };
    bool quiet = false;
    int heard = 0;
    const auto hear = [&](std::span<const float> block, double when) {
        for (std::size_t at = 0; at < block.size(); at += 2) {
            const bool loud = std::abs(block[at]) > 0.3;
            if (loud && quiet) {
                const std::lock_guard hold(lock);
                clicks.emplace(++heard, when + static_cast<double>(at / 2) / 48000);
            }
            quiet = !loud;
        }
    };
    Player player(PlayerClock::computer, [&] { return std::make_unique<ClockedOutput>(hear); });
    player.setSink(watch, 640, 360);
    player.load(item, 0.5);
    watch->wait([](const auto& frame) { return frame.exact; });
    player.run(1);
    sleep(seconds - 1);
    player.stand(0.5);
    sleep(0.2);
    const std::lock_guard hold(lock);
    std::vector<double> apart;
    for (const auto& [number, when] : flashes)
        if (clicks.contains(number)) apart.push_back(1000 * (when - clicks[number]));
    if (apart.empty()) return say("sync", "nothing was seen");
    const auto [min, max] = std::ranges::minmax(apart);
    const auto late = std::ranges::count_if(apart, [](double each) { return std::abs(each) > 20; });
    say("sync", "{} flashes against clicks over {} s: median {:+.1f} ms, {:+.1f} to {:+.1f}, {} beyond 20 ms",
        apart.size(), seconds, median(apart), min, max, late);
}

void memory() {
    const auto video = split();
    const auto watch = std::make_shared<Watch>();
    const double before = peakMegabytes();
    Player one;
    Player two;
    one.setSink(watch, 540, 960);
    two.setSink(std::make_shared<Watch>(), 960, 540);
    one.load(video, 0);
    two.load(whole(fastRecording(), 120), 60);
    one.run(1);
    for (int turn = 0; turn < 40; ++turn) {
        if (turn % 10 == 9) two.run(turn < 20 ? -2 : 2);
        if (turn % 10 < 5) two.skim(turn * 2.9);
        sleep(0.25);
    }
    say("memory", "both players on 1080p: {:.0f} MB beside {:.0f} MB (aim: 400)", peakMegabytes() - before,
        before);
}

void run(const std::set<std::string>& names) {
    const std::pair<const char*, std::function<void()>> all[] = {
        {"play540", [] { play("play540", split(), 540, 960); }},
        {"play1080", [] { play("play1080", split(30), 1080, 1920); }},
        {"cost540", [] { cost("cost540", split(), 540, 960); }},
        {"cost1080", [] { cost("cost1080", split(30), 1080, 1920); }},
        {"refresh", refresh},
        {"step", step},
        {"seek", seek},
        {"skim", skim},
        {"backward", backward},
        {"sync", sync},
        {"memory", memory},
    };
    for (const auto& [name, work] : all)
        if (names.empty() || names.contains(name)) job::measured(work);
}

}
}

int main(int count, char** arguments) {
    try {
        murbo::players::run(std::set<std::string>(arguments + 1, arguments + count));
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}\n", error.what());
        return 1;
    }
}
