#include "core/render/stage/PlaybookMedia.h"
#include "platform/base/Files.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Canvas.h"
#include "platform/vision/SubjectMask.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"

#include <chrono>
#include <cstring>
#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace murbo {
namespace {

std::string jpeg(Colour colour, int side = 32) {
    return Jpeg::encode(Canvas::bitmap(Image::colour(colour), {0, 0, double(side), double(side)}), 1);
}

/// Red of the middle pixel; -1 where there is no picture.
int redOf(const std::optional<Image>& image) {
    if (!image) return -1;
    const Bitmap bitmap = Canvas::bitmap(*image, image->extent());
    return bitmap.row(bitmap.height() / 2)[bitmap.width() / 2 * 4 + 2];
}

double seconds(const std::function<void()>& call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// What of a colour a cube leaves, 0 to 1: its four numbers at the nearest of its steps.
std::array<float, 4> looked(const Filters::ColourCube& cube, double red, double green, double blue) {
    const auto step = [](double channel) { return std::size_t(std::lround(channel * 31)); };
    const float* cell = cube.values->data() + (step(blue) * 1024 + step(green) * 32 + step(red)) * 4;
    return {cell[0], cell[1], cell[2], cell[3]};
}

bool same(const Bitmap& one, const Bitmap& other) {
    for (int y = 0; y < one.height(); ++y)
        if (std::memcmp(one.row(y), other.row(y), std::size_t(one.width()) * 4) != 0) return false;
    return one.width() == other.width() && one.height() == other.height();
}

}

TEST(PlaybookMedia, aChangedPictureIsReadAgain) {
    const TemporaryFolder folder;
    PlaybookMedia media;
    const auto path = folder / "a.jpg";
    EXPECT_EQ(redOf(media.image(path)), -1) << "not there yet";
    folder.file("a.jpg", "no picture at all");
    EXPECT_EQ(redOf(media.image(path)), -1);
    folder.file("a.jpg", jpeg(Colour::white));
    EXPECT_EQ(redOf(media.image(path)), 255);
    const auto first = media.image(path);
    EXPECT_EQ(&first->node(), &media.image(path)->node()) << "kept";
    folder.file("a.jpg", jpeg(Colour::black));
    std::filesystem::last_write_time(path,
                                     std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_EQ(redOf(media.image(path)), 0);
    // As long and as old as it was, as after a change of its rights; the clock of files ticks slowly.
    const auto written = std::filesystem::last_write_time(path);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    folder.file("a.jpg", std::string(std::filesystem::file_size(path), 'x'));
    std::filesystem::last_write_time(path, written);
    EXPECT_EQ(redOf(media.image(path)), -1);
    std::filesystem::remove(path);
    EXPECT_EQ(redOf(media.image(path)), -1);
    EXPECT_EQ(redOf(first), 255) << "an image lives on without its file";
}

TEST(PlaybookMedia, whatIsNoPictureOrVideoIsNothing) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder.jpg");
    std::filesystem::create_symlink("nowhere", folder / "dangling.jpg");
    ASSERT_EQ(mkfifo((folder / "pipe.mp4").c_str(), 0600), 0);
    const std::string side("\x00\x00\x4E\x20", 4);
    folder.file("huge.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16) + side + side);
    std::filesystem::resize_file(folder / "huge.png", 100 << 20);
    folder.file("noise.mp4", std::string(100'000, '\x5A')
                                 .replace(0, 12,
                                          "\0\0\0\x18"
                                          "ftypisom",
                                          12));
    folder.file("empty.webm");
    PlaybookMedia media;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
        const auto& path = entry.path();
        EXPECT_LT(seconds([&] { EXPECT_FALSE(media.image(path)) << path; }), 0.03) << path;
        const auto footage = media.footage(path, "key");
        if (!footage) continue;
        EXPECT_FALSE(footage->frame(1)) << path;
        EXPECT_LT(seconds([&] { EXPECT_FALSE(media.footage(path, "key")->frame(2)); }), 0.03)
            << "not tried again";
    }
}

TEST(PlaybookMedia, aVideoThatIsCutShowsWhatThereIs) {
    const TemporaryFolder folder;
    Movie::write(folder / "whole.mp4", 30);
    PlaybookMedia media;
    const auto whole = media.footage(folder / "whole.mp4", "key");
    EXPECT_EQ(Movie::number(whole->frame(0.5)), 15);
    EXPECT_EQ(Movie::number(whole->frame(99)), 29) << "behind the end, the last one";
    const std::string bytes = Files::readWhole(folder / "whole.mp4", 1 << 24);
    for (const std::size_t kept : {bytes.size() - 1, bytes.size() / 2, std::size_t{100}, std::size_t{8}}) {
        folder.file("cut.mp4", bytes.substr(0, kept));
        const auto cut = media.footage(folder / "cut.mp4", "key");
        cut->frame(0);
        cut->frame(0.9);
        cut->frame(5);
    }
}

TEST(PlaybookMedia, eachLayerReadsAVideoForItself) {
    const TemporaryFolder folder;
    Movie::write(folder / "a.mp4", 5);
    PlaybookMedia media;
    std::vector<std::weak_ptr<Footage>> opened;
    const auto used = media.footage(folder / "a.mp4", "0");
    for (int layer = 1; layer < 20; ++layer) {
        opened.push_back(media.footage(folder / "a.mp4", std::to_string(layer)));
        EXPECT_NE(opened.back().lock(), used);
        EXPECT_EQ(opened.back().lock(), media.footage(folder / "a.mp4", std::to_string(layer)));
    }
    const auto isOpen = [](const auto& footage) { return !footage.expired(); };
    EXPECT_EQ(std::count_if(opened.begin(), opened.end(), isOpen), 16) << "no more are kept open";
    EXPECT_EQ(Movie::number(used->frame(0)), 0) << "what is in use stays";
}

TEST(PlaybookMedia, lettersOfAnySizeAndLengthCostLittle) {
    PlaybookMedia media;
    CaptionStyle style;
    style.size = 84;
    const auto text = media.text("Hello there", style, "");
    if (!text) GTEST_SKIP() << "No font is installed.";
    EXPECT_GT(text->extent().width, 300);
    EXPECT_LE(text->extent().width, 1080);
    EXPECT_EQ(&text->node(), &media.text("Hello there", style, "")->node()) << "kept";
    media.text("\uE000\U0010FFFF\xFF\xC0 no font draws these", style, "");
    EXPECT_LT(seconds([&] {
                  EXPECT_FALSE(media.text(std::string(100'000, 'x'), style, ""));
                  EXPECT_FALSE(media.glyph(std::string(100'000, 'x'), 160));
                  for (const double size : {1e9, 1e308, -1.0, 0.0, std::nan("")}) {
                      style.size = size;
                      EXPECT_FALSE(media.text("Hello", style, "")) << size;
                      EXPECT_FALSE(media.glyph("x", size)) << size;
                  }
              }),
              0.03);
}

TEST(PlaybookMedia, manyLargeWordsAreKeptTogether) {
    PlaybookMedia media;
    CaptionStyle style;
    style.size = 200;
    std::vector<Image> drawn;
    const std::array words{"AMAZING", "UNREAL", "NO WAY", "INSANE"};
    for (const char* word : words)
        if (const auto image = media.text(word, style, "", 4)) drawn.push_back(*image);
    if (drawn.empty()) GTEST_SKIP() << "No font is installed.";
    for (std::size_t i = 0; i < words.size(); ++i)
        EXPECT_EQ(media.text(words[i], style, "", 4)->node(), drawn[i].node()) << words[i];
    const Rect plain = media.text(words[0], style, "")->extent();
    EXPECT_NEAR(drawn[0].extent().width, plain.width, 2) << "trimmed, but as large as its block";
    EXPECT_NEAR(drawn[0].extent().height, plain.height, 2);
}

TEST(PlaybookMedia, glyphsHaveAirAroundAndMorePixelsThanAsked) {
    PlaybookMedia media;
    const auto letter = media.glyph("I", 200);
    if (!letter) GTEST_SKIP() << "No font is installed.";
    EXPECT_GT(letter->extent().height, 0.6 * 112 + 8);
    EXPECT_LT(letter->extent().height, 0.9 * 112 + 8);
    EXPECT_NEAR(media.glyph("I", 400)->extent().height - 8, 2 * (letter->extent().height - 8), 1.5);
    const Bitmap drawn = Canvas::bitmap(*letter, letter->extent());
    for (int x = 0; x < drawn.width(); ++x) EXPECT_EQ(drawn.row(2)[x * 4 + 3], 0);
    EXPECT_EQ(redOf(letter), 255);
    EXPECT_GT(redOf(media.glyph("🔥", 200)), 200);
    EXPECT_FALSE(media.glyph(" ", 200));
}

TEST(PlaybookMedia, aColourIsTakenOutByItsHue) {
    PlaybookMedia media;
    const auto cube = media.cube({0, 255, 0, 255});
    ASSERT_EQ(cube->values->size(), 131'072U);
    // Hues of 120 ± 31 degrees lie in the middle of the soft band.
    struct Case {
        const char* name;
        std::array<double, 3> colour; // in 31sts
        double alpha;
    };
    for (const auto& [name, colour, alpha] : std::vector<Case>{{"the key", {0, 31, 0}, 0},
                                                               {"a shade of it", {0, 15, 0}, 0},
                                                               {"20 degrees off", {10, 31, 0}, 0},
                                                               {"31 degrees off", {16, 31, 0}, 0.5},
                                                               {"31 the other way", {0, 31, 16}, 0.5},
                                                               {"yellow", {31, 31, 0}, 1},
                                                               {"nearly black", {0, 6, 0}, 1},
                                                               {"pale", {23, 31, 23}, 1},
                                                               {"grey", {15, 15, 15}, 1}}) {
        const auto cell = looked(*cube, colour[0] / 31, colour[1] / 31, colour[2] / 31);
        EXPECT_NEAR(cell[3], alpha, 0.04) << name;
        EXPECT_NEAR(cell[1], colour[1] / 31 * cell[3], 0.02) << name << ": premultiplied";
    }
    EXPECT_EQ(looked(*media.cube({255, 0, 40, 255}), 1, 0, 0)[3], 0) << "hues meet at red";
    EXPECT_FALSE(media.cube({255, 255, 255, 255})) << "white has no hue, not that of red";
    EXPECT_FALSE(media.cube({90, 94, 90, 255}));
    EXPECT_TRUE(media.cube({60, 80, 60, 255}));
}

TEST(PlaybookMedia, aCutOutIsTheSameInWhateverOrderFramesAreDrawn) {
    std::vector<Image> cut;
    const TemporaryFolder folder;
    Movie::write(folder / "a.mp4", 12);
    const auto drawn = [](const Image& image) { return Canvas::bitmap(image, {0, 0, 128, 64}); };
    {
        PlaybookMedia media;
        Footage footage(folder / "a.mp4");
        for (int frame = 0; frame < 12; ++frame) cut.push_back(media.cutout(*footage.frame(frame / 30.0)));
        EXPECT_TRUE(media.cutout(Image::colour(Colour::white)).extent().isEverything());
        EXPECT_TRUE(media.cutout(Image()).empty());
    }
    // The images outlive the media.
    std::vector<Bitmap> forward;
    for (const auto& image : cut) forward.push_back(drawn(image));
    for (std::size_t frame = cut.size(); frame-- > 0;)
        EXPECT_TRUE(same(drawn(cut[frame]), forward[frame])) << frame;
}

TEST(PlaybookMedia, aPersonIsCutOut) {
    const std::filesystem::path file = std::filesystem::path(MURBO_FOOTAGE) / "actors-battle.webm";
    if (!SubjectMask::available()) GTEST_SKIP() << "The weights of the subject masks are not here.";
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "The footage of people is not here.";
    PlaybookMedia media;
    const auto frame = Footage(file).frame(14);
    const Image person = media.cutout(frame->transformed(Transform().translated(50, 20)));
    EXPECT_EQ(person.extent(), (Rect{50, 20, frame->extent().width, frame->extent().height}));
    const Bitmap bitmap = Canvas::bitmap(person, person.extent());
    std::array<double, 3> shares{}; // clear, between, solid
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) {
            const int alpha = bitmap.row(y)[x * 4 + 3];
            shares[alpha < 10 ? 0 : alpha > 245 ? 2 : 1] += 1.0 / bitmap.width() / bitmap.height();
        }
    EXPECT_GT(shares[0], 0.2);
    EXPECT_GT(shares[2], 0.05);
}

}
