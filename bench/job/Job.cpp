// The whole job, a Short out of a long recording, beside two yardsticks with the same encoder settings: the
// ffmpeg program doing the same, and the floor: decoding the footage that is needed plus encoding finished
// frames.
//
//     bench_job [SECONDS]        60 where nothing is said
//     bench_job [SECONDS] NAME…  only the measurements of those names
//
// Each measurement is a process of its own; CPU is user and system time of all its threads.

#include "bench/job/Measured.h"
#include "bench/job/Sample.h"
#include "bench/job/SharedFrames.h"
#include "core/render/Renderer.h"
#include "core/render/export/DrawnFrames.h"
#include "core/render/export/Exporter.h"
#include "core/render/export/PictureFeed.h"
#include "core/render/sound/MixedSound.h"
#include "platform/base/Files.h"
#include "platform/image/draw/Canvas.h"
#include "platform/media/FrameReader.h"
#include "platform/media/MovieWriter.h"

#include <cstdio>
#include <set>

#include <fmt/format.h>
#include <time.h>
#include <unistd.h>

namespace murbo::job {
namespace {

constexpr int rate = 30;

VideoComposition composed(const Sample& sample) {
    return VideoComposition::make(sample.video, sample.project, {}, "", {}, rate);
}

std::vector<SoundMix::Track> tracks(const Sample& sample, const VideoComposition& composition) {
    return SoundMix::tracks(sample.video, *composition.box->plan());
}

void exportMovie(const Sample& sample) {
    Exporter::Order order;
    order.to = sample.folder / "ours.mp4";
    order.frameRate = rate;
    Exporter::movie(sample.video, sample.project, order);
}

void drawToNothing(const Sample& sample) {
    const auto composition = composed(sample);
    DrawnFrames frames(composition);
    MixedSound sound(tracks(sample, composition), composition.length());
    while (frames.next()) {
        // one block a half second: fewer than frames
        sound.next();
    }
    while (sound.next()) {
    }
}

/// All frames from one picture of the footage: what drawing costs without decoding.
void drawAlone(const Sample& sample) {
    const auto composition = composed(sample);
    const auto plan = composition.box->plan();
    const auto source = sample.video.cuts.back().source;
    const auto picture = Image::frame(FrameReader::open(sample.recording).at(10)->frame);
    CaptionCache captions;
    Planes planes(1080, 1920);
    for (std::int64_t frame = 0; frame < composition.frameCount(); ++frame) {
        const auto moment = composition.moment(frame);
        const bool footage = !composition.segments[moment.segment].file.empty();
        Canvas::draw(Renderer::render(footage ? std::optional(picture) : std::nullopt, source, *plan,
                                      moment.time, captions, composition.box->media()),
                     planes);
    }
}

void decode(const Sample& sample) {
    const auto composition = composed(sample);
    PictureFeed feed(composition);
    for (std::int64_t frame = 0; frame < composition.frameCount(); ++frame) feed.frame(frame);
}

void mixSound(const Sample& sample) {
    const auto composition = composed(sample);
    MixedSound sound(tracks(sample, composition), composition.length());
    while (sound.next()) {
    }
}

double threadSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Encodes frames that another process draws. Taking them over is no part of the work, and is told apart.
Measured encode(const Sample& sample) {
    const auto composition = composed(sample);
    SharedFrames shared(1080, 1920);
    const auto copying = sample.folder / "copying";
    const pid_t drawer = fork();
    if (drawer == 0) {
        DrawnFrames frames(composition);
        while (const auto planes = frames.next()) shared.put(*planes);
        shared.end();
        _exit(0);
    }
    auto result = measured([&] {
        auto writer =
            MovieWriter::open(sample.folder / "floor.mp4", {.width = 1080,
                                                            .height = 1920,
                                                            .rate = rate,
                                                            .sound = false,
                                                            .preset = Exporter::encoderPreset,
                                                            .quality = Exporter::encoderQuality,
                                                            .lookahead = Exporter::encoderLookahead});
        PlanesPool pool(1080, 1920);
        double copied = 0;
        while (true) {
            auto planes = pool.take();
            const double before = threadSeconds();
            const bool more = shared.take(planes);
            copied += threadSeconds() - before;
            if (!more) break;
            writer.picture(planes);
        }
        writer.finish();
        Files::writeWhole(copying, std::to_string(copied));
    });
    result.cpu -= std::stod(Files::readWhole(copying, 100));
    return result;
}

std::vector<std::string> encodedAlike(const Sample& sample) {
    return {"-c:v",
            "libx264",
            "-preset",
            Exporter::encoderPreset,
            "-crf",
            fmt::format("{}", Exporter::encoderQuality),
            "-rc-lookahead",
            fmt::format("{}", Exporter::encoderLookahead),
            "-pix_fmt",
            "yuv420p",
            "-c:a",
            "aac",
            "-b:a",
            "192k",
            "-ar",
            "48000",
            "-movflags",
            "+faststart",
            (sample.folder / "yardstick.mp4").string()};
}

/// The measurements that were asked for, each printed as soon as it is known.
class Table {
public:
    explicit Table(std::set<std::string> names) : wanted(std::move(names)) {
        fmt::print("{:<22}{:>9}{:>9}{:>10}{:>9}\n", "", "CPU s", "wall s", "CPU/wall", "peak MB");
    }

    template <class Work>
    void row(const std::string& name, const Work& work) {
        if (!wanted.empty() && !wanted.contains(name)) return;
        const auto& found = rows[name] = work();
        fmt::print("{:<22}{:>9.2f}{:>9.2f}{:>10.2f}{:>9.0f}\n", name, found.cpu, found.wall,
                   found.cpu / found.wall, found.peak);
        std::fflush(stdout);
    }

    bool has(const std::string& name) const { return rows.contains(name); }
    const Measured& operator[](const std::string& name) const { return rows.at(name); }

private:
    std::set<std::string> wanted;
    std::map<std::string, Measured> rows;
};

void printRatio(const std::string& what, double value, const std::string& aim) {
    fmt::print("{:<44}{:>8.3f}   {}\n", what, value, aim);
}

void judge(const Table& table) {
    fmt::print("\n");
    if (table.has("decode") && table.has("encode")) {
        const double floor = table["decode"].cpu + table["encode"].cpu;
        fmt::print("{:<44}{:>8.2f} s CPU\n", "floor: decode + encode", floor);
        if (table.has("ours")) printRatio("ours / floor", table["ours"].cpu / floor, "aim: at most 1.02");
        if (table.has("ours") && table.has("sound")) {
            printRatio("ours / floor with the sound", table["ours"].cpu / (floor + table["sound"].cpu), "");
        }
        if (table.has("ffmpeg")) printRatio("ffmpeg / floor", table["ffmpeg"].cpu / floor, "");
    }
    if (table.has("ours") && table.has("ffmpeg"))
        printRatio("ours / ffmpeg", table["ours"].cpu / table["ffmpeg"].cpu, "");
    if (table.has("drawn") && table.has("ffmpeg-null")) {
        printRatio("drawn to nothing / ffmpeg -f null", table["drawn"].cpu / table["ffmpeg-null"].cpu,
                   "aim: at most 0.9");
    }
    if (table.has("alone") && table.has("alone-playbooks"))
        printRatio("with playbooks / without, drawing alone",
                   table["alone-playbooks"].cpu / table["alone"].cpu, "");
    if (table.has("drawn") && table.has("drawn-playbooks"))
        printRatio("with playbooks / without, both to nothing",
                   table["drawn-playbooks"].cpu / table["drawn"].cpu, "aim: at most 1.6");
    if (table.has("ours")) {
        printRatio("ours: CPU / wall", table["ours"].cpu / table["ours"].wall, "aim: at least 1.8");
        printRatio("ours: peak MB", table["ours"].peak, "aim: below 500");
    }
    if (table.has("ours-playbooks"))
        printRatio("ours with playbooks: peak MB", table["ours-playbooks"].peak, "aim: below 500");
}

void run(int seconds, std::set<std::string> names) {
    const auto job = sample(seconds);
    fmt::print("{} s at 1080x1920, {} pictures a second, {} cuts; x264 {} at {}\n\n", seconds, rate,
               job.video.cuts.size(), Exporter::encoderPreset, Exporter::encoderQuality);
    Table table(std::move(names));
    table.row("decode", [&] { return measured([&] { decode(job); }); });
    table.row("sound", [&] { return measured([&] { mixSound(job); }); });
    table.row("drawn", [&] { return measured([&] { drawToNothing(job); }); });
    table.row("alone", [&] { return measured([&] { drawAlone(job); }); });
    table.row("alone-playbooks", [&] { return measured([&] { drawAlone(withPlaybooks(job)); }); });
    table.row("drawn-playbooks", [&] { return measured([&] { drawToNothing(withPlaybooks(job)); }); });
    table.row("ffmpeg-null", [&] { return measured(yardstick(job, {"-f", "null", "-"})); });
    table.row("encode", [&] { return encode(job); });
    table.row("ours", [&] { return measured([&] { exportMovie(job); }); });
    table.row("ours-playbooks", [&] { return measured([&] { exportMovie(withPlaybooks(job)); }); });
    table.row("ffmpeg", [&] { return measured(yardstick(job, encodedAlike(job))); });
    judge(table);
}

}
}

int main(int count, char** arguments) {
    try {
        std::set<std::string> names;
        for (int index = 2; index < count; ++index) names.insert(arguments[index]);
        murbo::job::run(count > 1 ? std::max(std::atoi(arguments[1]), 5) : 60, names);
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}\n", error.what());
        return 1;
    }
}
