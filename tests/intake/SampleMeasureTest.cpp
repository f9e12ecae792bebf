#include "core/intake/samples/SampleMeasure.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Codec.h"
#include "platform/base/Files.h"
#include "tests/intake/Stretches.h"

#include <numeric>

using namespace murbo;
using stretches::still;
using stretches::stretch;
using CameraMove = Samples::Move;

namespace {

double mean(const std::vector<std::int64_t>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) /
           static_cast<double>(std::max(values.size(), 1UL));
}

struct Means {
    double sharpness = 0;
    double exposure = 0;
    double steadiness = 0;
};

Means meansOf(const std::string& name, const std::string& filter) {
    const Samples samples = SampleMeasure::measure(stretch(name + ".mp4", filter));
    return {mean(samples.sharpness), mean(samples.exposure), mean(samples.steadiness)};
}

/// The share of the samples that have this move.
double shareOf(CameraMove move, const Samples& samples) {
    return static_cast<double>(std::count(samples.moves.begin(), samples.moves.end(), move)) /
           static_cast<double>(samples.moves.size());
}

const std::string shaky = "crop=480:360:x='240+14*(random(1)-.5)':y='180+14*(random(2)-.5)'";
const std::string strolling = "crop=480:360:x='240+4*sin(12*t)':y='180+3*sin(20*t)'";
const std::string panning = "crop=480:360:x=20+60*t:y=180";

}

TEST(SampleMeasure, aPictureIsSharpByItsEdgesAndNotByItsContrast) {
    MURBO_NEEDS_FFMPEG();
    const double sharp = meansOf("still", still).sharpness;
    const double soft = meansOf("soft", still + ",gblur=1.5").sharpness;
    const double blurred = meansOf("blurred", still + ",gblur=4").sharpness;
    const double smeared = meansOf("smeared", still + ",avgblur=12:sizeY=1").sharpness;
    EXPECT_GT(sharp, 150);
    EXPECT_LT(soft, sharp - 40);
    EXPECT_LT(blurred, soft - 10);
    EXPECT_LT(smeared, sharp - 40);
    EXPECT_GT(meansOf("dark", still + ",lutyuv=y=16+(val-16)*0.2").sharpness, soft);
    EXPECT_GT(meansOf("foggy", still + ",lutyuv=y=110+val*0.2").sharpness, soft);
    EXPECT_LT(meansOf("blank", still + ",lutyuv=y=120").sharpness, 20);
}

TEST(SampleMeasure, aPictureIsWellExposedWithItsTonesSpreadRoundTheMiddle) {
    MURBO_NEEDS_FFMPEG();
    const double well = meansOf("still", still).exposure;
    EXPECT_GT(well, 180);
    for (const auto& [name, filter] : {std::pair{"dark", "lutyuv=y=16+(val-16)*0.2"},
                                       {"bright", "lutyuv=y='min(235,val*2.6)'"},
                                       {"foggy", "lutyuv=y=110+val*0.2"},
                                       {"blank", "lutyuv=y=120"}})
        EXPECT_LT(meansOf(name, still + "," + filter).exposure, well / 2) << name;
    const double barred = meansOf("barred", "crop=480:240,pad=480:360:0:60").exposure;
    EXPECT_GT(barred, well * 0.85);
}

TEST(SampleMeasure, aCameraIsSteadyOnItsStandOrInASmoothMove) {
    MURBO_NEEDS_FFMPEG();
    const double stroll = meansOf("strolling", strolling).steadiness;
    EXPECT_LT(meansOf("shaky", shaky).steadiness, stroll - 30);
    for (const auto& [name, filter] : {std::pair{"still", still}, {"panning", panning}}) {
        const double steady = meansOf(name, filter).steadiness;
        EXPECT_GT(steady, 235) << name;
        EXPECT_LT(stroll, steady - 30) << name;
    }
    EXPECT_GT(meansOf("blank", still + ",lutyuv=y=120").steadiness, 235) << "nothing in it moves";
    EXPECT_LT(meansOf("whipping", "crop=480:360:x='240+230*sin(6*t)'").steadiness, stroll);
}

TEST(SampleMeasure, movesAreTold) {
    MURBO_NEEDS_FFMPEG();
    const std::string zooming =
        "zoompan=z='1.1+0.006*on':x='iw/2-iw/zoom/2':y='ih/2-ih/zoom/2':d=1:"
        "s=480x360:fps=25";
    const std::tuple<const char*, std::string, CameraMove> cases[] = {
        {"still", still, CameraMove::still},
        {"panning", panning, CameraMove::pan},
        {"tilting", "crop=480:360:y=20+60*t:x=240", CameraMove::tilt},
        {"zooming", zooming, CameraMove::zoom},
        {"rolling", "rotate=0.2*t,crop=480:360", CameraMove::roll},
        {"slanting", "crop=480:360:x=20+60*t:y=20+60*t", CameraMove::mixed},
        // A little man before the camera is not the camera.
        {"passing",
         still + "[wall];color=black:s=90x200:r=25[man];[wall][man]overlay=x=t*150:y=150:shortest=1",
         CameraMove::still}};
    for (const auto& [name, filter, move] : cases) {
        const Samples samples = SampleMeasure::measure(stretch(std::string(name) + ".mp4", filter));
        EXPECT_GT(shareOf(move, samples), 0.9) << name;
    }
    // A turned phone pans as it is looked at.
    const auto turned = made::file("turned.mp4", "-i " + made::quoted(stretch("panning.mp4", panning)) +
                                                     " -c copy -metadata:s:v rotate=90");
    EXPECT_GT(shareOf(CameraMove::tilt, SampleMeasure::measure(turned)), 0.9);
}

// One sample a quarter of a second, whatever the file's way of keeping pictures.
TEST(SampleMeasure, everyKindOfFileHasFourSamplesASecond) {
    MURBO_NEEDS_FFMPEG();
    for (const auto& [name, encoding] : {std::pair{"h264.mkv", "-c:v libx264 -preset veryfast -g 250"},
                                         {"intra.mov", "-c:v mjpeg -q:v 3"},
                                         {"ten.mkv", "-c:v libx264 -preset ultrafast -pix_fmt yuv422p10le"},
                                         {"woven.ts", "-c:v mpeg2video -q:v 3 -flags +ildct+ilme -top 1"},
                                         {"vp8.webm", "-c:v libvpx -b:v 2M -deadline realtime"},
                                         {"slow.mkv", "-c:v libx264 -preset veryfast -r 2"}}) {
        const Samples samples = SampleMeasure::measure(stretch(name, panning, encoding));
        EXPECT_EQ(samples.count(), 12U) << name;
        EXPECT_GT(shareOf(CameraMove::pan, samples), 0.9) << name;
        EXPECT_GT(mean(samples.sharpness), 120) << name;
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

// What was seen on real footage when it was looked at.
TEST(SampleMeasure, realFootageIsToldRight) {
    const std::filesystem::path footage = MURBO_FOOTAGE;
    if (!std::filesystem::exists(footage)) GTEST_SKIP() << "The real footage is not on this machine.";
    const Samples people = SampleMeasure::measure(footage / "people-no-audio.mp4");
    EXPECT_GT(shareOf(CameraMove::still, people), 0.98) << "people walk before a camera on the wall";
    EXPECT_GT(mean(people.steadiness), 240);
    const Samples flight = SampleMeasure::measure(footage / "action-cam-29.97.mp4");
    EXPECT_GT(shareOf(CameraMove::zoom, flight), 0.9) << "a smooth flight forwards";
    EXPECT_GT(mean(flight.steadiness), 220);
    const Samples cave = SampleMeasure::measure(footage / "game-cave-60fps.mp4");
    EXPECT_LT(mean(cave.exposure), 40) << "a few figures in the dark";
}
