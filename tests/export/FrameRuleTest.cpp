#include "core/render/export/PictureFeed.h"
#include "core/render/plan/FrameTime.h"
#include "core/render/sound/SoundMix.h"
#include "tests/MadeMedia.h"
#include "tests/TemporaryFolder.h"
#include "tests/render/Samples.h"

#include <cmath>
#include <cstdlib>
#include <random>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace murbo {
namespace {

constexpr int footageFrames = 120;

struct Rate {
    const char* written;
    double value;

    int whole() const { return static_cast<int>(std::lround(value)); }
    bool isWhole() const { return value == whole(); }
};

constexpr Rate rates[] = {{"24000/1001", 24000 / 1001.0}, {"24", 24}, {"25", 25},
                          {"30000/1001", 30000 / 1001.0}, {"30", 30}, {"50", 50},
                          {"60000/1001", 60000 / 1001.0}, {"60", 60}};
constexpr const char* formats[] = {"mp4", "mkv", "mov", "ts", "avi"};

/// The numbered pictures at a rate, in a format.
std::filesystem::path footage(const Rate& rate, const std::string& format) {
    const auto movie = made::folder() / "numbered.mp4";
    if (!std::filesystem::exists(movie)) samples::writeNumbered(movie, footageFrames, 30);
    // Pictures without times, so that a rate given to them is the whole truth.
    const auto plain = made::file("numbered.y4m", "-i " + made::quoted(movie));
    const char* coder = format == "avi" ? "-c:v mjpeg -q:v 3" : "-c:v libx264 -preset ultrafast -g 24 -bf 2";
    return made::file(
        fmt::format("{:.3f}.{}", rate.value, format),
        fmt::format("-r {} -i {} -fps_mode passthrough {}", rate.written, made::quoted(plain), coder));
}

/// A time as people and models write it.
double written(double time) {
    return std::round(time * 1000) / 1000;
}

/// A video of cuts that begin and end at frames' own times, each of a source of its own, with one line and
/// one overlay that are on throughout.
struct RandomVideo {
    std::vector<int> firsts; ///< the number of each cut's first picture
    std::vector<int> counts; ///< how many pictures it has
    Project project;
    Video video;

    RandomVideo(const std::filesystem::path& file, const Rate& rate, int cuts, unsigned seed) {
        std::mt19937 random(seed);
        video.look.emplace();
        for (int index = 0; index < cuts; ++index) {
            // Overlays last 0.1 s at least.
            const int count = 1 + rate.whole() / 10 + static_cast<int>(random() % 10);
            const int first = static_cast<int>(random() % (footageFrames - count));
            add(file, written(first / rate.value), written((first + count) / rate.value));
            firsts.push_back(first);
            counts.push_back(count);
        }
    }

    void add(const std::filesystem::path& file, double start, double end) {
        const auto& source = project.sources.edit().emplace_back(Source{.path = file, .length = 100});
        video.cuts.edit().push_back({.source = source.id, .start = start, .end = end});
        project.transcripts[source.id].lines.edit().push_back({.start = start, .end = end, .text = "a line"});
        video.look->overlays.edit().push_back(
            {.playbook = "stock.hearts", .source = source.id, .at = start, .length = end - start});
    }
};

/// What is wrong with the pictures of a cut, if anything. Footage of no whole rate has a frame too few or too
/// many now and then, but never one from outside the cut, and none is left out.
std::string faultIn(const std::vector<int>& shown, int first, int count, const Rate& rate) {
    const auto all = [&] { return fmt::format("{} for {} on: {}", count, first, fmt::join(shown, " ")); };
    const auto size = static_cast<int>(shown.size());
    if (shown.empty() || shown.front() != first || shown.back() >= first + count) return all();
    if (rate.isWhole() ? size != count : std::abs(size - count) > 1) return all();
    int repeated = 0;
    for (int at = 1; at < size; ++at) {
        const int step = shown[at] - shown[at - 1];
        if (step == 0) ++repeated;
        if (step < 0 || step > 1 || repeated > (rate.isWhole() ? 0 : 1)) return all();
    }
    return "";
}

void holdsTheRule(const std::filesystem::path& file, const Rate& rate, int cuts, unsigned seed) {
    const RandomVideo made(file, rate, cuts, seed);
    const auto composition =
        VideoComposition::make(made.video, made.project, {}, "", {}, static_cast<double>(rate.whole()));
    const auto plan = composition.box->plan();
    ASSERT_EQ(plan->overlays.size(), made.video.cuts.size());

    PictureFeed feed(composition);
    std::vector<std::vector<int>> shown(made.video.cuts.size());
    int wrong = 0;
    for (std::int64_t frame = 0; frame < composition.frameCount(); ++frame) {
        const auto [segment, time, at] = composition.moment(frame);
        const auto picture = feed.frame(frame);
        shown[segment].push_back(picture.image ? samples::numberIn(samples::drawn(*picture.image, 640, 360))
                                               : -1);
        const auto& cut = made.video.cuts[segment];
        const auto* cue = plan->cue(time);
        wrong += !cue || cue->line != made.project.transcripts.at(cut.source).lines[0].id;
        for (const auto& placed : plan->overlays)
            wrong += placed.isOn(time) != (placed.overlay.source == cut.source);
        wrong += plan->shot(time) != &plan->shots[0];
    }
    EXPECT_EQ(wrong, 0) << "captions or overlays of another cut";
    int faults = 0;
    for (std::size_t index = 0; index < shown.size(); ++index) {
        const auto fault = faultIn(shown[index], made.firsts[index], made.counts[index], rate);
        if (!fault.empty() && ++faults < 4) ADD_FAILURE() << fault;
    }
    EXPECT_EQ(faults, 0) << "of " << cuts;

    const double length = composition.length();
    const auto tracks = SoundMix::tracks(made.video, *plan, {}, [](const auto&) { return 100.0; });
    double heard = 0;
    for (const auto& track : tracks) heard = std::max(heard, track.pieces.back().end);
    EXPECT_DOUBLE_EQ(made.video.length(), length);
    EXPECT_DOUBLE_EQ(heard, length);
    EXPECT_NEAR(plan->cues.back().end, length, 1e-9);
    EXPECT_NEAR(plan->shots.back().end, length, 1e-9);
    EXPECT_EQ(composition.frameCount(), FrameTime::first(length, composition.rate));
}

/// Random projects over every format and rate. MURBO_FRAME_RULE_CUTS cuts in each combination of them are a
/// longer run; without it, a few in a quarter of the combinations.
TEST(FrameRule, eachFrameShowsWhatIsOnAtEveryRate) {
    MURBO_NEEDS_FFMPEG();
    const char* asked = std::getenv("MURBO_FRAME_RULE_CUTS");
    const int cuts = asked ? std::atoi(asked) : 25;
    for (unsigned rate = 0; rate < std::size(rates); ++rate)
        for (unsigned format = 0; format < std::size(formats); ++format) {
            if (!asked && (rate + format) % 4 != 1) continue;
            SCOPED_TRACE(fmt::format("{} at {}", formats[format], rates[rate].written));
            holdsTheRule(footage(rates[rate], formats[format]), rates[rate], cuts, rate * 10 + format);
        }
}

}
}
