#include "platform/media/PictureFile.h"
#include "platform/media/PictureHeader.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PictureHeader, whatIsTooLargeIsRefusedByItsHeader) {
    const TemporaryFolder folder;
    for (const auto& header : {
             std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x4E\x20\0\0\x4E\x20", 24),
             std::string("\xFF\xD8\xFF\xE0\x00\x04..\xFF\xC2\x00\x11\x08\x4E\x20\x4E\x20\x03", 18),
             std::string("GIF89a\x20\x4E\x20\x4E", 10),
             std::string("RIFF\xFF\0\0\0WEBPVP8X\x0A\0\0\0\0\0\0\0\x1F\x4E\0\x1F\x4E\0", 30),
             std::string("BM\0\0\0\0\0\0\0\0\0\0\0\0\x28\0\0\0\x20\x4E\0\0\xE0\xB1\xFF\xFF", 26),
         }) {
        const auto path = folder.file("huge", header);
        std::filesystem::resize_file(path, 100 << 20);
        EXPECT_EQ(problemOf([&] { PictureFile::read(path, 1e9); }),
                  "“huge” is too large: 20000 × 20000 pixels.")
            << header.substr(0, 6);
    }
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
