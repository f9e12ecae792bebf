#include "core/render/captions/CaptionPicture.h"
#include "core/render/footage/Footage.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Canvas.h"
#include "tests/SameBitmaps.h"
#include "tests/TemporaryFolder.h"
#include "tests/footage/Movie.h"

#include <chrono>
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
    EXPECT_TRUE(first->isSameAs(*media.image(path))) << "kept";
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

TEST(PlaybookMedia, aPictureWithSeveralNamesIsReadOnce) {
    const TemporaryFolder folder;
    PlaybookMedia media;
    const auto file = folder.file("a.jpg", jpeg(Colour::white, 64));
    std::filesystem::create_symlink(file, folder / "link.jpg");
    std::filesystem::create_hard_link(file, folder / "hard.jpg");
    const auto image = media.image(file);
    for (const char* name : {"link.jpg", "hard.jpg"})
        EXPECT_TRUE(media.image(folder / name)->isSameAs(*image)) << name;
    EXPECT_EQ(image->extent().width, 64);
    EXPECT_LE(media.image(file, 1024)->extent().width, 32) << "coarser where it may have fewer pixels";
}

TEST(PlaybookMedia, eachKeyColourHasACubeOfItsOwn) {
    PlaybookMedia media;
    const Colour keys[] = {{0, 200, 0}, {0, 200, 190}, {190, 200, 0}, {0, 90, 190}};
    for (const auto& key : keys)
        for (const auto& other : keys) {
            const auto one = media.cube(key), two = media.cube(other);
            ASSERT_TRUE(one && two);
            EXPECT_EQ(one->values == two->values, key == other);
        }
}

TEST(PlaybookMedia, whatIsNoPictureOrVideoIsNothing) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder.jpg");
    std::filesystem::create_symlink("nowhere", folder / "dangling.jpg");
    ASSERT_EQ(mkfifo((folder / "pipe.mp4").c_str(), 0600), 0);
    folder.file("noise.mp4", std::string(100'000, '\x5A')
                                 .replace(0, 12,
                                          "\0\0\0\x18"
                                          "ftypisom",
                                          12));
    folder.file("empty.webm");
    PlaybookMedia media;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
        const auto& path = entry.path();
        EXPECT_FALSE(media.image(path)) << path;
        const auto footage = media.footage(path, "key");
        if (!footage) continue;
        EXPECT_FALSE(footage->frame(1)) << path;
        EXPECT_EQ(media.footage(path, "key"), footage) << "not opened again";
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

TEST(PlaybookMedia, lettersAreKeptAndAbsurdOnesAreNone) {
    PlaybookMedia media;
    CaptionStyle style;
    style.size = 84;
    const auto text = media.text("Hello there", style, "", 1, 928.8);
    if (!text) GTEST_SKIP() << "No font is installed.";
    EXPECT_GT(text->extent().width, 300);
    EXPECT_LE(text->extent().width, 1080);
    EXPECT_TRUE(text->isSameAs(*media.text("Hello there", style, "", 1, 928.8))) << "kept";
    EXPECT_GT(media.text("Hello there", style, "", 1, 300)->extent().height, text->extent().height);
    media.text("\uE000\U0010FFFF\xFF\xC0 no font draws these", style, "", 1, 928.8);
    EXPECT_FALSE(media.text(std::string(100'000, 'x'), style, "", 1, 928.8));
    EXPECT_FALSE(media.glyph(std::string(100'000, 'x'), 160));
    for (const double size : {1e9, 1e308, -1.0, 0.0, std::nan("")}) {
        style.size = size;
        EXPECT_FALSE(media.text("Hello", style, "", 1, 928.8)) << size;
        EXPECT_FALSE(media.glyph("x", size)) << size;
    }
}

TEST(PlaybookMedia, lettersStandWhereTheyDoInTheirBlock) {
    PlaybookMedia media;
    CaptionStyle style;
    style.size = 84;
    CaptionPicture::Request request{.text = "Hello", .style = style};
    request.width = 928.8;
    const auto block = CaptionPicture::bitmap(request);
    if (!block) GTEST_SKIP() << "No font is installed.";
    const auto kept = media.text("Hello", style, "", 1, 928.8);
    EXPECT_TRUE(same(Canvas::bitmap(*kept, {0, 0, double(block->width()), double(block->height())}), *block));
}

TEST(PlaybookMedia, manyLargeWordsAreKeptTogether) {
    PlaybookMedia media;
    CaptionStyle style;
    style.size = 200;
    std::vector<Image> drawn;
    const std::array words{"AMAZING", "UNREAL", "NO WAY", "INSANE"};
    for (const char* word : words)
        if (const auto image = media.text(word, style, "", 4, 928.8)) drawn.push_back(*image);
    if (drawn.empty()) GTEST_SKIP() << "No font is installed.";
    for (std::size_t i = 0; i < words.size(); ++i)
        EXPECT_TRUE(media.text(words[i], style, "", 4, 928.8)->isSameAs(drawn[i])) << words[i];
    const Rect plain = media.text(words[0], style, "", 1, 928.8)->extent();
    EXPECT_NEAR(drawn[0].extent().width, plain.width, 2) << "trimmed, but as large as its block";
    EXPECT_NEAR(drawn[0].extent().height, plain.height, 2);
}

}
