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

namespace {

/// An Exif block of one entry of another kind and one orientation, in the byte order that it names.
std::string exif(bool turned, int orientation, std::size_t entries = 2) {
    std::string block =
        turned ? std::string("MM\0\x2A\0\0\0\x08\0", 9) : std::string("II\x2A\0\x08\0\0\0", 8);
    block += turned ? std::string(1, char(entries)) : std::string{char(entries), '\0'};
    block += std::string("\1\1\0\3\0\0\0\1\0\7\0\0", 12);
    block += turned ? std::string("\1\x12\0\3\0\0\0\1\0", 9) : std::string("\x12\1\3\0\1\0\0\0", 8);
    return block + (turned ? std::string{char(orientation), '\0', '\0'}
                           : std::string{char(orientation), '\0', '\0', '\0'});
}

std::string webp(const std::string& chunks) {
    return "RIFF____WEBP" + chunks;
}

/// A chunk of less than 256 bytes.
std::string chunk(const std::string& name, const std::string& inside) {
    return name + char(inside.size()) + std::string(3, '\0') + inside + std::string(inside.size() % 2, '\0');
}

}

TEST(PictureBytes, anOrientationIsFoundWhereverItStandsAndHoweverItIsWritten) {
    for (const bool turned : {false, true}) {
        for (const int kept : {1, 8}) EXPECT_EQ(PictureBytes::orientationIn(exif(turned, kept)), kept);
        for (const int none : {0, 9}) EXPECT_EQ(PictureBytes::orientationIn(exif(turned, none)), 1) << none;
        EXPECT_EQ(PictureBytes::orientationIn(std::string("Exif\0\0", 6) + exif(turned, 6)), 6);
        EXPECT_EQ(PictureBytes::orientationIn(exif(turned, 6, 1)), 1) << "after the list's end";
        EXPECT_EQ(PictureBytes::orientationIn(exif(turned, 6).substr(0, 20)), 1);
        const auto block = exif(turned, 7);
        const auto png =
            "\x89PNG\r\n\x1A\n" + std::string(3, '\0') + char(block.size()) + "eXIf" + block + "crc.";
        EXPECT_EQ(PictureBytes::of(PictureHeader::Kind::png, png).orientation, 7);
    }
    EXPECT_EQ(PictureBytes::orientationIn("XX" + exif(true, 6).substr(2)), 1);
    EXPECT_EQ(PictureBytes::orientationIn(""), 1);
}

TEST(PictureBytes, chunksOfOddLengthAreFollowedByAByteOfNothing) {
    using Kind = PictureHeader::Kind;
    const auto still = webp(chunk("ICCP", "odd") + chunk("VP8 ", "even") + chunk("EXIF", exif(true, 3)));
    const auto picture = PictureBytes::of(Kind::webp, still);
    EXPECT_EQ(picture.orientation, 3);
    EXPECT_EQ(picture.bytes, still);
    // 300 by 200 pixels, the sides one less as everywhere in the format.
    const auto frame = [](const char* inside) {
        return std::string("xxxyyy\x2B\1\0\xC7\0\0dddf", 16) + chunk(inside, "one");
    };
    for (const auto& [kind, alpha] : {std::pair{"VP8 ", '\0'}, {"VP8L", '\x10'}, {"ALPH", '\x10'}}) {
        const auto moving = PictureBytes::of(
            Kind::webp,
            webp(chunk("ANIM", "odd") + chunk("ANMF", frame(kind)) + chunk("ANMF", frame("next"))));
        const auto inside =
            "WEBP" + chunk("VP8X", alpha + std::string("\0\0\0\x2B\1\0\xC7\0\0", 9)) + chunk(kind, "one");
        const std::string size{char(inside.size()), '\0', '\0', '\0'};
        EXPECT_EQ(moving.bytes, "RIFF" + size + inside) << kind;
    }
}

TEST(PictureBytes, aJpegOfEndlessScansIsNone) {
    const std::string scan("\xFF\xDA\0\4hd\x12\xFF\0\xFF\xD0\xFF\xD7\x34", 14); // stuffed and restarted
    for (const auto& [scans, taken] : {std::pair{64, true}, {65, false}}) {
        std::string file = "\xFF\xD8";
        for (int number = 0; number < scans; ++number) file += scan + "\xFF";
        file += "\xFF\xD9";
        const auto whole = file;
        EXPECT_EQ(PictureBytes::of(PictureHeader::Kind::jpeg, file).bytes, taken ? whole : "") << scans;
    }
    EXPECT_EQ(PictureBytes::of(PictureHeader::Kind::bmp, "any").bytes, "any");
}
