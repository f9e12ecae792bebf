#include "core/intake/samples/SampleMeasure.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Codec.h"
#include "platform/base/Files.h"
#include "tests/MadeMedia.h"

#include <numeric>

using namespace murbo;
using CameraMove = Samples::Move;

namespace {

/// Islands of even tones with hard shores, 960 x 720: blurred noise, in steps.
std::filesystem::path picture() {
    return made::file("picture.png",
                      "-f lavfi -i color=gray:s=960x720 -vf \"noise=alls=100:all_seed=7,gblur=sigma=7,"
                      "lutyuv=y='floor(clip((val-128)*11+120,30,225)/45)*45':u=128:v=128\" -frames:v 1");
}

/// Makes a stretch of three seconds, once. `filter` turns the large picture into one of 480 x 360; `encoding`
/// are further options for the ffmpeg program.
std::filesystem::path stretch(const std::string& name, const std::string& filter,
                              const std::string& encoding = "-c:v libx264 -preset veryfast -crf 20 -g 250") {
    return made::file(name, "-loop 1 -r 25 -i " + made::quoted(picture()) + " -t 3 -vf \"" + filter +
                                ",noise=alls=3:allf=t,format=yuv420p\" -an " + encoding);
}

/// The window in the middle of the picture, kept still.
const std::string still = "crop=480:360";

double mean(const std::vector<std::int64_t>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) /
           static_cast<double>(std::max(values.size(), 1UL));
}

/// The share of the samples that have this move.
double shareOf(CameraMove move, const Samples& samples) {
    return static_cast<double>(std::count(samples.moves.begin(), samples.moves.end(), move)) /
           static_cast<double>(samples.moves.size());
}

const std::string panning = "crop=480:360:x=20+60*t:y=180";

}

// One sample a quarter of a second, whatever the file's way of keeping pictures.
TEST(SampleMeasure, everyKindOfFileHasFourSamplesASecond) {
    MURBO_NEEDS_FFMPEG();
    for (const auto& [name, encoding] : {std::pair{"h264.mkv", "-c:v libx264 -preset veryfast -g 250"},
                                         {"woven.ts", "-c:v mpeg2video -q:v 3 -flags +ildct+ilme -top 1"},
                                         {"intra.mov", "-c:v mjpeg -q:v 3"},
                                         {"slow.mkv", "-c:v libx264 -preset veryfast -r 2"}}) {
        const Samples samples = SampleMeasure::measure(stretch(name, panning, encoding));
        EXPECT_EQ(samples.count(), 12U) << name;
        EXPECT_GT(shareOf(CameraMove::pan, samples), 0.9) << name;
        EXPECT_GT(mean(samples.sharpness), 120) << name;
        EXPECT_GT(mean(samples.exposure), 180) << name;
        EXPECT_GT(mean(samples.steadiness), 235) << name;
    }
}

TEST(SampleMeasure, isKeptInTheCacheAndMeasuredAnewWhereThatIsBroken) {
    MURBO_NEEDS_FFMPEG();
    const TemporaryFolder folder;
    const auto cache = folder / "cache";
    const Source source{.path = stretch("still.mp4", still)};
    const auto file = cache / "samples" / (source.id.text() + ".json");
    const Samples measured = SampleMeasure::of(source, cache);
    const std::string whole = contentsOf(file);
    EXPECT_EQ(Codec::decode<Samples>(whole), measured);

    Samples other = measured;
    other.sharpness[0] = 7;
    Files::writeWhole(file, Codec::encode(other));
    EXPECT_EQ(SampleMeasure::of(source, cache), other) << "what is kept is taken";

    Samples uneven = measured;
    uneven.exposure.pop_back();
    Samples outside = measured;
    outside.steadiness[1] = 256;
    Samples otherRate = measured;
    otherRate.rate = 2;
    for (const auto& broken :
         {std::string(), whole.substr(0, whole.size() / 2), std::string("[1]"), Codec::encode(uneven),
          Codec::encode(outside), Codec::encode(otherRate), Codec::encode(Samples{})}) {
        std::ofstream(file) << broken;
        EXPECT_EQ(SampleMeasure::of(source, cache), measured) << broken.substr(0, 60);
        EXPECT_EQ(contentsOf(file), whole);
    }
    const auto blocked = folder.file("no-folder", "in the way");
    EXPECT_EQ(SampleMeasure::of(source, blocked), measured) << "what can't be kept is measured all the same";
}

TEST(SampleMeasure, filesWithoutPicturesAndBrokenOnes) {
    MURBO_NEEDS_FFMPEG();
    const TemporaryFolder folder;
    EXPECT_EQ(SampleMeasure::measure(made::file("sound.wav", "-f lavfi -i sine=d=1")).count(), 0U);
    EXPECT_THROW(SampleMeasure::measure(folder / "nowhere.mp4"), Problem);

    const auto movie = stretch("h264.mkv", panning);
    const std::string whole = contentsOf(movie);
    for (const double share : {0.0, 0.02, 0.3, 0.7}) {
        const auto path =
            folder.file("cut-short.mkv", whole.substr(0, static_cast<std::size_t>(whole.size() * share)));
        try {
            EXPECT_LE(SampleMeasure::measure(path).count(), 12U) << share;
        } catch (const Problem& problem) {
            EXPECT_LT(share, 0.5) << problem.what();
        }
    }

    const std::vector<Source> sources{{.path = folder / "nowhere.mp4"}, {.path = movie}};
    const auto all = SampleMeasure::of(sources, std::nullopt);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all.begin()->second.count(), 12U);

    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(SampleMeasure::measure(movie, stop.get_token()), Cancelled);
}
