#include "platform/media/PictureFile.h"
#include "platform/media/PictureHeader.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PictureHeader, whatIsTooLargeIsRefusedByItsHeader) {
    const TemporaryFolder folder;
    const auto path =
        folder.file("huge", std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x4E\x20\0\0\x4E\x20", 24));
    std::filesystem::resize_file(path, 100 << 20);
    EXPECT_EQ(problemOf([&] { PictureFile::read(path, 1e9); }), "“huge” is too large: 20000 × 20000 pixels.");
}

TEST(PictureHeader, aJpegsSizeStandsAfterItsTables) {
    const TemporaryFolder folder;
    const std::string frame("\x00\x11\x08\x00\x50\x00\x60\x03", 8); // 96 x 80
    for (const auto* marker : {"\xC4", "\xC8", "\xCC", "\xDB", "\xE1"}) {
        const auto path =
            folder.file("a.jpg", std::string("\xFF\xD8\xFF") + marker +
                                     std::string("\x00\x08\x11\x22\x33\x44\x55\x66\xFF\xC0", 10) + frame);
        const auto header = PictureHeader::read(path);
        ASSERT_TRUE(header) << int(marker[0]);
        EXPECT_EQ(header->width, 96) << int(marker[0]);
        EXPECT_EQ(header->height, 80);
    }
}

TEST(PictureHeader, everyKindSaysItsWidthAndItsHeight) {
    const TemporaryFolder folder;
    using Kind = PictureHeader::Kind;
    struct Case {
        Kind kind;
        std::string bytes;
        std::int64_t width = 300; // 0x012C, so that the order of bytes counts
        std::int64_t height = 200;
    };
    const auto webp = [](const std::string& inside) {
        return "RIFF____WEBP" + inside + std::string(20, '\0');
    };
    const std::string bmp("BM____________", 14);
    const Case cases[] = {
        {Kind::png, std::string("\x89PNG\r\n\x1A\n____IHDR\0\0\1\x2C\0\0\0\xC8", 24)},
        {Kind::gif, std::string("GIF87a\x2C\1\xC8\0", 10)},
        {Kind::jpeg, std::string("\xFF\xD8\xFF\xE0\0\4ab\xFF\xFF\xFF\xC2\0\x11\x08\0\xC8\1\x2C\3", 20)},
        {Kind::webp, webp(std::string("VP8X________\x2B\1\0\xC7\0\0", 18))},
        {Kind::webp, webp(std::string("VP8 __________\x2C\x41\xC8\xC0", 18)), 300, 200},
        {Kind::webp, webp(std::string("VP8L____\x2F\x2B\xC1\x31\0", 13)), 300, 200},
        {Kind::bmp, bmp + std::string("\x28\0\0\0\x2C\1\0\0\xC8\0\0\0", 12)},
        {Kind::bmp, bmp + std::string("\x28\0\0\0\x2C\1\0\0\x38\xFF\xFF\xFF", 12)},
        {Kind::bmp, bmp + std::string("\x0C\0\0\0\x2C\1\xC8\0____", 12)},
        {Kind::avif, "____ftypavif", 0, 0},
        {Kind::avif, "____ftypavis", 0, 0},
    };
    for (const auto& [kind, bytes, width, height] : cases) {
        const auto header = PictureHeader::read(folder.file("a", bytes));
        ASSERT_TRUE(header) << bytes;
        EXPECT_EQ(header->kind, kind) << bytes;
        EXPECT_EQ(header->width, width) << bytes;
        EXPECT_EQ(header->height, height) << bytes;
    }
    for (const char* other : {"", "B", "____ftypmp42", "RIFF____WAVE", "\xFF\xD8\xFF\xDA____________",
                              "\xFF\xD8\xFF\xD9____________"})
        EXPECT_FALSE(PictureHeader::read(folder.file("a", other))) << other;
}
