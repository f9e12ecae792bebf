#include "platform/media/PictureBytes.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PictureBytes, packedNotesAreNeverUnpacked) {
    const auto chunk = [](std::string name, std::string inside) {
        return std::string("\0\0\0", 3) + char(inside.size()) + name + inside + "crc.";
    };
    const std::string start = "\x89PNG\r\n\x1A\n" + chunk("IHDR", std::string(13, '\1'));
    const std::string end = chunk("IDAT", "picture") + chunk("IEND", "");
    const std::string noted =
        start + chunk("zTXt", "note") + chunk("iCCP", "profile") + end + chunk("fdAT", "next");
    EXPECT_EQ(PictureBytes::of(PictureHeader::Kind::png, noted).bytes, start + end);
}
