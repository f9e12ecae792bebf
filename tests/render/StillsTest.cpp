#include "core/render/DrawnFrames.h"
#include "core/render/Exporter.h"
#include "core/render/Stills.h"
#include "platform/image/Canvas.h"
#include "platform/media/FrameReader.h"
#include "tests/render/Samples.h"

#include <algorithm>
#include <cstring>

#include <gtest/gtest.h>

namespace murbo {
namespace {

Project projectSaying(const std::string& text, double start, double end, const std::filesystem::path& file) {
    auto project = samples::project({file});
    Line line;
    line.start = start;
    line.end = end;
    line.text = text;
    project.transcripts[project.sources[0].id].lines.edit().push_back(line);
    return project;
}

Video captioned(const Project& project, const std::vector<samples::Stretch>& stretches) {
    auto video = samples::video(project, stretches);
    video.look->captions.on = true;
    return video;
}

TEST(Stills, aStillIsTheExportedFrame) {
    const samples::Folder folder;
    samples::writeNumbered(folder / "a.mp4", 120, 30);
    const auto project = projectSaying("Hello สวัสดี", 1, 3, folder / "a.mp4");
    const auto video = captioned(project, {{0, 1, 1.1}, {0, 2, 2.1}, {0, 3, 3.1}, {0, 0.5, 0.6}});

    const auto composition = VideoComposition::make(video, project, {}, "", {}, 30);
    DrawnFrames frames(composition);
    Exporter::movie(video, project, {.to = folder / "out.mp4", .frameRate = 30});
    auto movie = FrameReader::open(folder / "out.mp4");
    CaptionCache captions;
    for (int frame = 0; frame < 12; ++frame) {
        const auto still = Stills::frame(video, project, {}, "", {}, frame / 30.0, {}, captions);
        Planes planes(1080, 1080);
        Canvas::draw(still, planes);
        const auto drawn = frames.next();
        double difference = 0;
        const auto pixels = samples::drawn(still, 1080, 1080);
        const auto exported = samples::drawn(Image::frame(movie.at(frame / 30.0)->frame), 1080, 1080);
        for (int y = 0; y < 1080; ++y) {
            ASSERT_EQ(std::memcmp(planes.plane(0) + y * planes.stride(0),
                                  drawn->plane(0) + y * drawn->stride(0), 1080),
                      0)
                << frame << ", row " << y;
            for (int x = 0; x < 1080; ++x) {
                difference += std::abs(pixels.row(y)[4 * x + 1] - exported.row(y)[4 * x + 1]);
            }
        }
        EXPECT_LT(difference / (1080 * 1080), 2) << frame; // what the encoder loses
    }
}

TEST(Stills, withoutAReadablePictureTheCaptionStandsOnBlack) {
    const auto project = projectSaying("MMMM", 0, 2, "/nowhere/a.mp4");
    auto video = captioned(project, {{0, 0, 2}});
    video.cuts.edit().push_back(Cut::generated("title", 1, std::nullopt, 1));
    CaptionCache captions;
    const auto brightest = [&](double at) {
        const auto frame =
            samples::drawn(Stills::frame(video, project, {}, "", {}, at, {}, captions), 1080, 1080);
        int most = 0;
        for (int y = 0; y < 1080; ++y) {
            for (int x = 0; x < 1080; ++x) most = std::max<int>(most, frame.row(y)[4 * x]);
        }
        return most;
    };
    EXPECT_GT(brightest(1), 200);
    EXPECT_EQ(brightest(2.5), 0);
    EXPECT_EQ(brightest(99), 0);
}

TEST(Stills, jpegAndSpecimens) {
    const auto specimen = Stills::caption("Hello", CaptionStyle::builtIn()[0], "");
    ASSERT_TRUE(specimen);
    EXPECT_GT(specimen->extent().width, 100);
    const auto bytes = Stills::jpeg(Image::colour({255, 0, 0}).cropped({5, 7, 300, 400}), 0.85);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->substr(0, 3), "\xFF\xD8\xFF");
    EXPECT_FALSE(Stills::jpeg(Image(), 0.85));
    EXPECT_FALSE(Stills::jpeg(Image::colour(Colour::black), 0.85));
}

TEST(Stills, eachStyleGivesItsOwnPicture) {
    const auto project = projectSaying("Hello", 0, 2, "/nowhere/a.mp4");
    const auto video = captioned(project, {{0, 0, 2}});
    const auto& presets = CaptionStyle::builtIn();
    const auto images = Stills::styled(video, project, {}, "", {}, 1, {presets[0], presets[4]});
    ASSERT_EQ(images.size(), 2U);
    EXPECT_FALSE(samples::same(samples::drawn(images[0], 1080, 1080), samples::drawn(images[1], 1080, 1080)));
}

}
}
