#include "core/render/Stills.h"
#include "core/render/export/DrawnFrames.h"
#include "core/render/export/Exporter.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Canvas.h"
#include "platform/media/FrameReader.h"
#include "tests/TemporaryFolder.h"
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

/// Dresses the video of one source with playbooks of every kind: after a title, letters, particles, what
/// lies below, a stretch of the recording; and a layout.
void dress(Video& video) {
    const UUID source = video.cuts[0].source;
    auto& look = *video.look;
    for (const char* playbook : {"stock.hearts", "stock.vhs", "stock.replay", "stock.hook"})
        look.overlays.edit().push_back({.playbook = playbook, .source = source, .at = 1, .length = 1});
    look.overlays.edit()[2].values = Values{{"clip", "rec:0.5-0.7"}};
    look.overlays.edit()[3].move = Move{.from = Placement{.y = 0.4}, .to = Placement{.y = 0.6}};
    look.shots.edit() = {{.source = source, .at = 1, .layout = Shot::Layout::content},
                         {.source = source, .at = 2, .transition = "whip", .playbook = "stock.layout.wide"}};
    video.cuts.edit().insert(video.cuts.begin(), Cut::generated("stock.generator.title", 1, {}, 0.1));
}

int differingRows(const Planes& one, const Planes& other) {
    int rows = 0;
    for (int plane = 0; plane < 3; ++plane) {
        const int width = plane == 0 ? one.width() : one.width() / 2;
        for (int y = 0; y < (plane == 0 ? one.height() : one.height() / 2); ++y)
            rows += std::memcmp(one.plane(plane) + y * one.stride(plane),
                                other.plane(plane) + y * other.stride(plane), width) != 0;
    }
    return rows;
}

TEST(Stills, aStillIsTheExportedFrame) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 120, 30);
    const auto project = projectSaying("Hello สวัสดี", 1, 3, folder / "a.mp4");
    auto video = captioned(project, {{0, 1, 1.1}, {0, 2, 2.1}, {0, 3, 3.1}, {0, 0.5, 0.6}});
    video.aspect = Video::Aspect::vertical;
    dress(video);

    const auto composition = VideoComposition::make(video, project, {}, "", {}, 30);
    ASSERT_EQ(composition.box->plan()->overlays.size(), 4U);
    DrawnFrames(composition).next(); // given up half-way: ends by itself
    DrawnFrames frames(composition, 3);
    Exporter::movie(video, project, {.to = folder / "out.mp4", .frameRate = 30});
    auto movie = FrameReader::open(folder / "out.mp4");
    std::vector<Planes> drawn;
    while (auto planes = frames.next()) drawn.push_back(*planes);
    ASSERT_EQ(drawn.size(), 15U);
    for (const int frame : {7, 14, 0, 1, 12, 3, 4, 11, 10, 5, 6, 9, 8, 2, 13}) {
        const auto still = Stills::frame({video, project, {}}, frame / 30.0, *composition.box);
        Planes planes(1080, 1920);
        Canvas::draw(still, planes);
        EXPECT_EQ(differingRows(planes, drawn[frame]), 0) << frame;
        double difference = 0;
        const auto pixels = samples::drawn(still, 1080, 1920);
        const auto exported = samples::drawn(Image::frame(movie.at(frame / 30.0)->frame), 1080, 1920);
        for (int y = 0; y < 1920; ++y)
            for (int x = 0; x < 1080; ++x)
                difference += std::abs(pixels.row(y)[4 * x + 1] - exported.row(y)[4 * x + 1]);
        EXPECT_LT(difference / (1080 * 1920), 3) << frame; // what the encoder loses
    }
}

TEST(Stills, afterTheEndTheLastFrameOfTheLastCutStays) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 120, 30);
    const auto project = samples::project({folder / "a.mp4"});
    const auto video = samples::video(project, {{0, 0, 1}, {0, 2.033, 3.067}});
    const auto composition = VideoComposition::make(video, project, {}, "", {}, 30);
    ASSERT_EQ(composition.frameCount(), 61);
    const std::pair<double, int> shown[] = {
        {1.0, 61}, {0.9995, 61}, {60 / 30.0, 91}, {composition.length(), 91}, {99.0, 91}, {0.998, 29}};
    for (const auto& [time, number] : shown) {
        const auto still = Stills::frame({video, project, {}}, time, *composition.box);
        EXPECT_EQ(samples::numberIn(samples::drawn(still, 1080, 1080)), number) << time;
    }
    const auto gone = Stills::frame({video, project, {project.sources[0].id}}, 1, *composition.box);
    EXPECT_EQ(samples::numberIn(samples::drawn(gone, 1080, 1080)), -1) << "of a source that counts as gone";
}

TEST(Stills, withoutAReadablePictureTheCaptionStandsOnBlack) {
    const auto project = projectSaying("MMMM", 0, 2, "/nowhere/a.mp4");
    auto video = captioned(project, {{0, 0, 2}});
    video.cuts.edit().push_back(Cut::generated("found nowhere", 1, std::nullopt, 1));
    PlanBox box(Plan::video(video, project, "", {}));
    const auto brightest = [&](double at) {
        const auto frame = samples::drawn(Stills::frame({video, project, {}}, at, box), 1080, 1080);
        int max = 0;
        for (int y = 0; y < 1080; ++y) {
            for (int x = 0; x < 1080; ++x) max = std::max<int>(max, frame.row(y)[4 * x]);
        }
        return max;
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
    const auto read = Jpeg::decode(*bytes, 1000);
    ASSERT_TRUE(read && read->width() == 300 && read->height() == 400);
    for (const auto& [x, y] : {std::pair{0, 0}, {299, 399}}) EXPECT_GT(read->row(y)[4 * x + 2], 250);
    const auto blend = Image::gradient({0, 0, 300, 400}, {255, 0, 0}, {0, 0, 255});
    EXPECT_LT(Stills::jpeg(blend, 0.3)->size(), Stills::jpeg(blend, 0.95)->size());
    const auto shown = [](const char* text, std::size_t preset) {
        const auto image = Stills::caption(text, CaptionStyle::builtIn()[preset], "");
        return samples::drawn(*image, 900, 200);
    };
    EXPECT_TRUE(same(shown("Hello", 0), shown("Hello", 0)));
    EXPECT_FALSE(same(shown("Hello", 0), shown("Hello", 4)));
    EXPECT_FALSE(same(shown("Hello", 0), shown("Hallo", 0)));
    EXPECT_FALSE(Stills::jpeg(Image(), 0.85));
    EXPECT_FALSE(Stills::jpeg(Image::colour(Colour::black), 0.85));
}

TEST(Stills, eachStyleGivesItsOwnPicture) {
    const auto project = projectSaying("Hello", 0, 2, "/nowhere/a.mp4");
    const auto video = captioned(project, {{0, 0, 2}});
    const auto& presets = CaptionStyle::builtIn();
    const auto images = Stills::styled({video, project, {}}, 1, Plan::video(video, project, "", {}),
                                       {presets[0], presets[4]});
    ASSERT_EQ(images.size(), 2U);
    EXPECT_FALSE(same(samples::drawn(images[0], 1080, 1080), samples::drawn(images[1], 1080, 1080)));
}

}
}
