#include "app/headless/Commands.h"
#include "app/headless/Interruption.h"
#include "app/headless/ProgressLine.h"
#include "app/options/Paths.h"
#include "core/model/Settings.h"
#include "core/render/Stills.h"
#include "core/render/VideoComposition.h"
#include "core/render/export/Exporter.h"
#include "core/render/export/OwnFiles.h"
#include "platform/base/CommaList.h"
#include "platform/base/Files.h"
#include "platform/base/Numbers.h"
#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <fstream>

#include <fmt/format.h>

namespace murbo {

namespace {

namespace fs = std::filesystem;

constexpr double stillQuality = 0.85;
constexpr double smoothRate = 16; // frames a second; with fewer, motion falls apart into pictures

/// The first video with a tag, which may be typed in either case.
const Video& video(const std::string& tag, const Project& project) {
    for (const auto& each : project.videos)
        if (Text::sameIgnoringCase(each.tag(), tag)) return each;
    throw Problem("The project has no video " + tag + ".");
}

/// The times in a list like "1.5,2"; what is no time is passed over.
std::vector<double> times(std::string_view list) {
    std::vector<double> result;
    for (const auto entry : CommaList::entries(list))
        if (const auto time = Numbers::parse(entry)) result.push_back(*time);
    return result;
}

void writePlainly(const fs::path& file, const std::string& bytes) {
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    if (!stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
        throw Problem("“" + file.filename().string() +
                      "” could not be written: " + SystemError::cause(errno) + ".");
}

/// Names the footage that can't be shown: an export goes on without it.
void remarkBlackCuts(const Video& video, const Commands::Opened& opened) {
    for (const auto& source : opened.project.sources) {
        const auto isOfIt = [&](const Cut& cut) { return cut.source == source.id && !cut.generator; };
        if (std::ranges::none_of(video.cuts, isOfIt)) continue;
        const auto why = Commands::whyUnusable(source.path);
        if (why) Commands::remark(*why + " Its cuts are black.");
    }
}

/// Where the movie goes: the word after the project and the video. The options may stand before it too.
fs::path movieFile(const Commands::Words& words) {
    const auto own = Arguments::without({"--srt"}, {"--fps"}, words);
    if (own.size() < 3) throw Problem("Say where the movie is to be written: a file, after the video.");
    if (own[2].starts_with("--"))
        throw Problem("“" + own[2] + "” reads like an option. For a movie of that name, put ./ before it.");
    return Paths::absolute(own[2]);
}

/// The frame rate asked for, else that of the footage.
double frameRate(const Arguments& arguments, const Video& video, const Commands::Opened& opened) {
    const auto asked = arguments.value("--fps");
    const auto rate = asked ? Numbers::parse(*asked) : std::nullopt;
    if (rate) return *rate;
    const double found = VideoComposition::sourceRate(video, opened.project, opened.missing);
    if (found < smoothRate)
        Commands::remark(
            fmt::format("The footage has {:.0f} pictures a second, and so will the movie: captions and "
                        "moves are as jerky. With --fps 30 they are smooth.",
                        found));
    return found;
}

}

void Commands::stills(const Arguments&, const Words& words) {
    const auto opened = open(words[0]);
    const auto& shown = video(words[1], opened.project);
    const auto folder = Paths::absolute(words[3]);
    const auto fonts = Settings::captionFonts();
    const auto plan = Plan::video(shown, opened.project, fonts, opened.package);
    const OwnFiles own(opened.project, shown, plan);
    own.refuse(folder);
    Files::createFolder(folder);
    remarkBlackCuts(shown, opened);
    PlanBox box(plan);
    for (const double time : times(words[2])) {
        const auto file = folder / fmt::format("{} {:06.2f}.jpg", shown.tag(), time);
        own.refuse(file);
        const auto still = Stills::frame({shown, opened.project, opened.missing}, time, box);
        if (const auto bytes = Stills::jpeg(still, stillQuality)) writePlainly(file, *bytes);
        print(file.string());
    }
}

void Commands::movie(const Arguments& arguments, const Words& words) {
    const auto opened = open(words[0]);
    const auto& shown = video(words[1], opened.project);
    const auto file = movieFile(words);
    remarkBlackCuts(shown, opened);
    const double rate = frameRate(arguments, shown, opened);
    const Interruption interruption;
    ProgressLine line;
    const auto notes = Exporter::movie(
        shown, opened.project,
        {.to = file,
         .missing = opened.missing,
         .fonts = Settings::captionFonts(),
         .package = opened.package,
         .frameRate = rate,
         .subtitles = arguments.has("--srt")},
        [&](double progress) { line.show(progress); }, interruption.token());
    line.clear();
    print(fmt::format("{} {:.0f} fps", file.string(), rate));
    if (notes.oldSubtitles)
        fmt::print(stderr,
                   "note: “{}” was there before and is not of this movie, but players will show it.\n",
                   Text::repaired(notes.oldSubtitles->filename().string()));
}

}
