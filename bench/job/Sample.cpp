#include "bench/job/Sample.h"

#include "core/render/export/Subtitles.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"

#include <cstdlib>

#include <fmt/format.h>

namespace murbo::job {
namespace {

constexpr double cutLength = 5;
constexpr double captionLength = 1.25;
constexpr int recordingLength = 300; // seconds
constexpr int partLength = 25;       // three times 250 pictures

// Words short and long, in two scripts, so that no two captions are one picture.
constexpr const char* words[] = {"Hello there",    "สวัสดีครับ",      "this is how",    "a stream looks",
                                 "when it is cut", "ทุกคนสบายดีไหม", "into one short", "with captions",
                                 "and some music", "จบแล้ว"};

void runTool(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw Problem("This did not work: " + command);
}

/// A stretch that asks something of both decoder and encoder (a zoom into detail, a moving box, a little
/// grain), twelve times over; a keyframe every 250 pictures, as recorders write it.
void makeRecording(const std::filesystem::path& path) {
    if (std::filesystem::exists(path)) return;
    const auto part = path.parent_path() / "part.mp4";
    runTool(fmt::format(
        "ffmpeg -v error -y -f lavfi -i "
        "mandelbrot=size=1920x1080:rate=30:start_scale=2:end_scale=0.02:end_pts=750 "
        "-f lavfi -i testsrc2=size=730x604:rate=30 -f lavfi -i "
        "anoisesrc=color=pink:amplitude=0.2:sample_rate=48000 "
        "-filter_complex '[0:v][1:v]overlay=x=1152:y=475,scale=out_color_matrix=bt709,format=yuv420p,"
        "noise=alls=3:allf=t[v]' -map '[v]' -map 2:a -t {} -c:v libx264 -preset veryfast -crf 22 -g 250 "
        "-keyint_min 250 -sc_threshold 0 -colorspace bt709 -color_primaries bt709 -color_trc bt709 "
        "-c:a aac -b:a 160k '{}'",
        partLength, part.string()));
    const auto whole = path.parent_path() / "whole.mp4";
    runTool(fmt::format("ffmpeg -v error -y -stream_loop {} -i '{}' -c copy '{}'",
                        recordingLength / partLength - 1, part.string(), whole.string()));
    std::filesystem::rename(whole, path);
    std::filesystem::remove(part);
}

void makeMusic(const std::filesystem::path& path) {
    if (std::filesystem::exists(path)) return;
    runTool(
        fmt::format("ffmpeg -v error -y -f lavfi -i sine=frequency=220:sample_rate=44100:duration=700 "
                    "-af tremolo=f=4 -ac 2 -c:a libmp3lame -b:a 192k -f mp3 '{}'",
                    path.string()));
}

double cutStart(int cut) {
    return 7.3 + (cut * 23) % (recordingLength - 20);
}

void lay(Sample& sample, int seconds) {
    Source source;
    source.path = sample.recording;
    source.length = recordingLength;
    sample.project.sources.edit().push_back(source);
    sample.video.look.emplace();
    auto& lines = sample.project.transcripts[source.id].lines.edit();
    for (int cut = 0; cut * cutLength < seconds; ++cut) {
        sample.video.cuts.edit().push_back(
            {.source = source.id, .start = cutStart(cut), .end = cutStart(cut) + cutLength});
        for (int part = 0; part * captionLength < cutLength; ++part) {
            Line line;
            line.start = cutStart(cut) + part * captionLength;
            line.end = line.start + captionLength;
            line.text = fmt::format("{} {}", words[(cut + part) % std::size(words)], cut * 4 + part);
            lines.push_back(line);
        }
    }
    SoundCue music;
    music.file = sample.music;
    music.source = source.id;
    music.at = cutStart(0);
    sample.video.look->music.edit().push_back(music);
}

void writeCaptions(const Sample& sample) {
    std::string text =
        "[Script Info]\nScriptType: v4.00+\nPlayResX: 1080\nPlayResY: 1920\n\n[V4+ Styles]\n"
        "Format: Name, Fontname, Fontsize, PrimaryColour, OutlineColour, Bold, BorderStyle, Outline, Shadow, "
        "Alignment\nStyle: Default,Noto Sans Thai,110,&H00FFFFFF,&H00000000,1,1,12,0,5\n\n[Events]\n"
        "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";
    const auto stamp = [](double time) {
        auto clock = Subtitles::time(time).substr(1, 10); // "0:00:01,25"
        clock[7] = '.';
        return clock;
    };
    double at = 0;
    for (const auto& line : sample.project.transcripts.begin()->second.lines) {
        text += fmt::format(
            "Dialogue: 0,{},{},Default,,0,0,0,,{{\\fscx86\\fscy86\\t(0,120,\\fscx100\\fscy100)}}{}\n",
            stamp(at), stamp(at + captionLength), line.text);
        at += captionLength;
    }
    Files::writeWhole(sample.captions, text);
}

}

Sample sample(int seconds) {
    Sample sample;
    sample.folder = std::filesystem::temp_directory_path() / "murbo-bench";
    Files::createFolder(sample.folder);
    sample.recording = sample.folder / "recording.mp4";
    sample.music = sample.folder / "music.mp3";
    sample.captions = sample.folder / "captions.ass";
    makeRecording(sample.recording);
    makeMusic(sample.music);
    lay(sample, seconds);
    writeCaptions(sample);
    return sample;
}

Sample withPlaybooks(Sample sample) {
    auto& cuts = sample.video.cuts.edit();
    auto& look = *sample.video.look;
    const auto lay = [&](const char* playbook, std::size_t cut, double length) {
        look.overlays.edit().push_back({.playbook = playbook,
                                        .source = cuts[cut % cuts.size()].source,
                                        .at = cuts[cut % cuts.size()].start,
                                        .length = length});
    };
    lay("stock.hearts", 1, 2 * cutLength);
    lay("stock.hook", 1, 2 * cutLength);
    lay("stock.vhs", 4, 2);
    lay("stock.sparkles", 6, 2 * cutLength);
    lay("stock.label", 6, 2 * cutLength);
    for (std::size_t cut = 0; cut < cuts.size(); ++cut) {
        auto& shot = look.shots.edit().emplace_back(Shot{.source = cuts[cut].source, .at = cuts[cut].start});
        if (cut % 3 == 2) shot.playbook = "stock.layout.wide";
    }
    const Values title{{"title", "How it went"}, {"subtitle", "and what came of it"}};
    cuts.insert(cuts.begin(), Cut::generated("stock.generator.title", 1, title, 3));
    return sample;
}

std::vector<std::string> yardstick(const Sample& sample, const std::vector<std::string>& output) {
    std::vector<std::string> arguments{"ffmpeg", "-v", "error", "-nostdin", "-y"};
    std::string graph;
    std::string joined;
    for (std::size_t cut = 0; cut < sample.video.cuts.size(); ++cut) {
        const auto start = fmt::format("{:.3f}", sample.video.cuts[cut].start);
        for (const auto& argument : {std::string("-ss"), start, std::string("-t"), std::string("5"),
                                     std::string("-i"), sample.recording.string()}) {
            arguments.push_back(argument);
        }
        // Bilinear is what the frames are scaled by here too.
        graph += fmt::format(
            "[{0}:v]split[a{0}][b{0}];[a{0}]crop=1215:1080:352:0,scale=1080:960:flags=bilinear[c{0}];"
            "[b{0}]crop=680:604:1176:475,scale=1080:960:flags=bilinear[d{0}];[c{0}][d{0}]vstack,setsar=1[v{0}"
            "];",
            cut);
        joined += fmt::format("[v{0}][{0}:a]", cut);
    }
    const auto count = sample.video.cuts.size();
    arguments.insert(arguments.end(), {"-i", sample.music.string()});
    graph += fmt::format(
        "{}concat=n={}:v=1:a=1[cv][ca];[cv]subtitles='{}'[v];[{}:a]volume=0.35[m];"
        "[ca][m]amix=inputs=2:duration=first:normalize=0[a]",
        joined, count, sample.captions.string(), count);
    arguments.insert(arguments.end(), {"-filter_complex", graph, "-map", "[v]", "-map", "[a]"});
    arguments.insert(arguments.end(), output.begin(), output.end());
    return arguments;
}

}
