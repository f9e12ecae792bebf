#include "core/render/export/ExportCancelled.h"
#include "core/render/export/ExportError.h"
#include "core/render/export/Exporter.h"
#include "platform/media/FrameReader.h"
#include "platform/media/SoundReader.h"
#include "tests/TemporaryFolder.h"
#include "tests/render/Samples.h"

#include <algorithm>
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace murbo {
namespace {

using samples::Stretch;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Le;

struct Movie {
    MediaFacts facts;
    std::vector<Bitmap> frames;
};

Movie read(const std::filesystem::path& path) {
    auto reader = FrameReader::open(path);
    Movie movie{.facts = reader.facts()};
    const auto [width, height] = movie.facts.picture->size;
    for (auto timed = reader.at(0); timed; timed = reader.next()) {
        movie.frames.push_back(samples::drawn(Image::frame(timed->frame), int(width), int(height)));
    }
    return movie;
}

std::vector<int> numbers(const Movie& movie) {
    std::vector<int> found;
    for (const auto& frame : movie.frames) found.push_back(samples::numberIn(frame));
    return found;
}

Exporter::Order orderTo(const std::filesystem::path& path, double rate = 30) {
    Exporter::Order order;
    order.to = path;
    order.frameRate = rate;
    return order;
}

TEST(Exporter, theMovieHoldsTheFramesOfItsCuts) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 300, 30);
    samples::writeNumbered(folder / "b.mp4", 100, 25);
    const auto project = samples::project({folder / "a.mp4", folder / "b.mp4"});
    const auto video = samples::video(project, {{0, 8, 8.2}, {1, 1, 1.2}, {0, 1, 1.1}});
    std::vector<double> shares;
    Exporter::movie(video, project, orderTo(folder / "out.mp4"),
                    [&](double share) { shares.push_back(share); });

    const auto movie = read(folder / "out.mp4");
    for (const char* chosen : {"crf=16.0", "rc_lookahead=15", "subme=2", "threads=6"})
        EXPECT_NE(contentsOf(folder / "out.mp4").find(chosen), std::string::npos) << chosen;
    EXPECT_EQ(movie.facts.picture->size, (Size{1080, 1080}));
    EXPECT_NEAR(movie.facts.picture->meanRate, 30, 1e-6);
    EXPECT_NEAR(movie.facts.length, 0.5, 0.03);
    EXPECT_THAT(numbers(movie),
                ElementsAre(240, 241, 242, 243, 244, 245, 25, 25, 26, 27, 28, 29, 30, 31, 32));
    ASSERT_FALSE(shares.empty());
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GE(shares.front(), 0);
    EXPECT_EQ(shares.back(), 1);
    EXPECT_EQ(entriesIn(folder.path), 3);
}

/// The times at which a sound starts after silence, in seconds.
std::vector<double> onsets(const std::filesystem::path& path) {
    auto reader = SoundReader::open(path);
    std::vector<float> sound(static_cast<std::size_t>(reader.length() * Sound::rate) * Sound::channels);
    reader.read(0, sound);
    std::vector<double> found;
    double lastLoud = -1;
    for (std::size_t index = 0; index < sound.size(); index += Sound::channels) {
        if (std::abs(sound[index]) < 0.1F) continue;
        const double time = static_cast<double>(index / Sound::channels) / Sound::rate;
        if (time - lastLoud > 0.05) found.push_back(time);
        lastLoud = time;
    }
    return found;
}

TEST(Exporter, soundAndPictureKeepInStepOverManyCuts) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 300, 30, true);
    const auto project = samples::project({folder / "a.mp4"});
    std::vector<Stretch> stretches;
    // Cuts that are no whole number of frames long, each with the beep of one second in it.
    for (int cut = 0; cut < 6; ++cut) {
        const double second = 1 + (cut * 5) % 8;
        stretches.push_back({0, second - 0.213, second + 0.321 + 0.011 * cut});
    }
    const auto video = samples::video(project, stretches);
    Exporter::movie(video, project, orderTo(folder / "out.mp4"));

    const auto movie = read(folder / "out.mp4");
    std::vector<double> flashes;
    for (std::size_t frame = 0; frame < movie.frames.size(); ++frame) {
        const bool framed = samples::isFramed(movie.frames[frame]);
        if (framed && (frame == 0 || !samples::isFramed(movie.frames[frame - 1])))
            flashes.push_back(frame / 30.0);
    }
    const auto beeps = onsets(folder / "out.mp4");
    ASSERT_EQ(flashes.size(), stretches.size());
    ASSERT_EQ(beeps.size(), stretches.size());
    double start = 0;
    for (std::size_t cut = 0; cut < stretches.size(); ++cut) {
        EXPECT_NEAR(beeps[cut], start + 0.213, 0.003) << cut;
        EXPECT_THAT(flashes[cut] - beeps[cut], AllOf(Ge(-0.002), Le(1 / 30.0 + 0.002))) << cut;
        start += video.cuts[cut].length();
    }
}

TEST(Exporter, whatStoodThereSurvivesAFailure) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30);
    const auto project = samples::project({folder / "a.mp4"});
    const auto video = samples::video(project, {{0, 0, 2}});
    folder.file("out.mp4", "the old one");

    EXPECT_THROW(Exporter::movie(samples::video(project, {}), project, orderTo(folder / "out.mp4")), Problem);
    EXPECT_THROW(Exporter::movie(video, project, orderTo(folder / "out.mp4", 0)), Problem);
    EXPECT_THROW(Exporter::movie(video, project, orderTo(folder / "none" / "out.mp4")), Problem);
    std::filesystem::create_directory(folder / "folder.mp4");
    EXPECT_THROW(Exporter::movie(video, project, orderTo(folder / "folder.mp4")), Problem);
    EXPECT_EQ(contentsOf(folder / "out.mp4"), "the old one");
    EXPECT_EQ(entriesIn(folder.path), 3);

    Exporter::movie(samples::video(project, {{0, 0, 0.1}}), project, orderTo(folder / "out.mp4"));
    EXPECT_EQ(read(folder / "out.mp4").frames.size(), 3U);
}

TEST(Exporter, footageIsNeverExportedOver) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 10, 30);
    const auto project = samples::project({folder / "a.mp4"});
    const auto video = samples::video(project, {{0, 0, 0.1}});
    const auto before = contentsOf(folder / "a.mp4");
    EXPECT_THROW(Exporter::movie(video, project, orderTo(folder / "a.mp4")), Problem);
    EXPECT_EQ(contentsOf(folder / "a.mp4"), before);
    // Nor are its files by subtitles.
    auto generated = video;
    generated.cuts.edit().push_back(
        Cut::generated("stock.generator.picture", 1, Values{{"media", folder / "own.srt"}}, 0.1));
    folder.file("own.srt", "written by hand");
    auto order = orderTo(folder / "own.mpg");
    order.subtitles = true;
    EXPECT_THROW(Exporter::movie(generated, project, order), Problem);
    EXPECT_FALSE(std::filesystem::exists(folder / "own.mpg"));

    order.to = folder / "out.srt";
    EXPECT_THROW(Exporter::movie(video, project, order), Problem);
    EXPECT_FALSE(std::filesystem::exists(folder / "out.srt"));
}

TEST(Exporter, aCancelledExportLeavesNothing) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30);
    const auto project = samples::project({folder / "a.mp4"});
    folder.file("out.mp4", "the old one");
    // An hour of one still frame: only the cancelling ends it.
    const auto video = samples::video(project, {{0, 0, 3600}});
    for (const double upTo : {0.0, 0.001}) {
        std::stop_source source;
        const auto stopWhen = [&](double share) {
            if (share >= upTo) source.request_stop();
        };
        EXPECT_THROW(
            Exporter::movie(video, project, orderTo(folder / "out.mp4"), stopWhen, source.get_token()),
            ExportCancelled);
        EXPECT_EQ(entriesIn(folder.path), 2);
        EXPECT_EQ(contentsOf(folder / "out.mp4"), "the old one");
    }
}

TEST(Exporter, footageWithSoundGivesAMovieWithSoundEvenWhereNoneIsHeard) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30, true);
    samples::writeNumbered(folder / "silent.mp4", 10, 30);
    const auto project = samples::project({folder / "a.mp4", folder / "silent.mp4"});
    const auto exported = [&](const Video& video) {
        Exporter::movie(video, project, orderTo(folder / "out.mp4"));
        return MediaFile::facts(folder / "out.mp4");
    };
    auto video = samples::video(project, {{0, 1, 1.5}});
    video.cuts.edit()[0].muted = true;
    EXPECT_TRUE(exported(video).sound);
    EXPECT_TRUE(onsets(folder / "out.mp4").empty());
    video.cuts.edit()[0].muted.reset();
    video.look->mix.emplace().video = 0;
    EXPECT_TRUE(exported(video).sound);
    video.cuts.edit()[0].source = project.sources[1].id;
    EXPECT_FALSE(exported(video).sound);
}

TEST(Exporter, soundThatIsTurnedOffIsHeardWhereTheOrderSaysSo) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30, true);
    const auto project = samples::project({folder / "a.mp4"});
    const auto video = samples::video(project, {{0, 0.9, 1.2}});
    auto mutedBlock = video;
    mutedBlock.cuts.edit()[0].muted = true;
    auto mutedRow = video;
    mutedRow.look->mix.emplace().muted = {Lane::video};
    for (const auto& [off, rows, blocks, beeps] : {std::tuple{mutedBlock, false, true, 1},
                                                   {mutedBlock, true, false, 0},
                                                   {mutedRow, true, false, 1},
                                                   {mutedRow, false, true, 0}}) {
        auto order = orderTo(folder / "out.mp4");
        order.includingMutedRows = rows;
        order.includingMutedBlocks = blocks;
        Exporter::movie(off, project, order);
        EXPECT_EQ(onsets(folder / "out.mp4").size(), beeps) << rows << blocks;
    }
}

TEST(Exporter, takesThePackagesPlaybooksAndLeavesOutWhatIsMissing) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30, true);
    const auto project = samples::project({folder / "a.mp4"});
    folder.file("a.mbproj/playbooks/white@1.mbplay/playbook.json",
                R"({"name": "w", "layers": [{"shape": "rect", "fill": true, "color": "FFFFFF"}]})");
    auto video = samples::video(project, {{0, 1.2, 1.5}});
    video.look->overlays.edit().push_back(
        {.playbook = "white", .source = project.sources[0].id, .at = 1.3, .length = 1});
    auto order = orderTo(folder / "out.mp4", 10);
    order.package = folder / "a.mbproj";
    const auto shades = [&] {
        Exporter::movie(video, project, order);
        std::string text;
        for (const auto& frame : read(folder / "out.mp4").frames) {
            const auto green = samples::pixel(frame, 540, 40) >> 8 & 0xFF;
            text += green > 0xF0 ? 'w' : green < 0x08 ? 'b' : '.';
        }
        return text;
    };
    EXPECT_EQ(shades(), ".ww");
    EXPECT_TRUE(MediaFile::facts(folder / "out.mp4").sound);
    order.missing = {project.sources[0].id};
    EXPECT_EQ(shades(), "bww");
    EXPECT_FALSE(MediaFile::facts(folder / "out.mp4").sound);
}

TEST(Exporter, subtitlesStandBesideTheMovieWhereThereAreAny) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30);
    auto project = samples::project({folder / "a.mp4"});
    const auto video = samples::video(project, {{0, 0, 0.5}});
    auto order = orderTo(folder / "out.mp4");
    order.subtitles = true;
    EXPECT_FALSE(Exporter::movie(video, project, order).oldSubtitles);
    EXPECT_FALSE(std::filesystem::exists(folder / "out.srt"));

    Line line;
    line.start = 0.1;
    line.end = 0.4;
    line.text = "Hello";
    project.transcripts[project.sources[0].id].lines.edit().push_back(line);
    Exporter::movie(video, project, order);
    EXPECT_EQ(contentsOf(folder / "out.srt"), "1\n00:00:00,100 --> 00:00:00,400\nHello\n");

    // Hidden captions are none, and what was there before is left, but told of.
    auto hidden = video;
    hidden.look->captions.lines.edit() = {{.line = line.id, .hidden = true}};
    EXPECT_EQ(Exporter::movie(hidden, project, order).oldSubtitles, folder / "out.srt");
    EXPECT_EQ(contentsOf(folder / "out.srt"), "1\n00:00:00,100 --> 00:00:00,400\nHello\n");

    std::filesystem::remove(folder / "out.srt");
    std::filesystem::remove(folder / "out.mp4");
    std::filesystem::create_directory(folder / "out.srt");
    EXPECT_THROW(Exporter::movie(video, project, order), Problem);
    EXPECT_TRUE(std::filesystem::is_regular_file(folder / "out.mp4"));
}

}
}
