#include "platform/base/Problem.h"
#include "platform/image/Jpeg.h"
#include "platform/media/PictureBytes.h"
#include "platform/media/PictureFile.h"
#include "tests/TemporaryFolder.h"
#include "tests/media/Made.h"

#include <cstdio>

#include <gmock/gmock.h>
#include <jpeglib.h>
#include <sys/stat.h>

namespace murbo {
namespace {

constexpr double everything = 1e9;

using Pixel = std::array<int, 4>; // blue, green, red, alpha; premultiplied
constexpr Pixel red{0x10, 0x20, 0xE0, 255};
constexpr Pixel blue{0xC0, 0x60, 0x20, 255};
constexpr Pixel halfBlue{0x60, 0x30, 0x10, 128};
constexpr Pixel grey{0x60, 0x60, 0x60, 255};

Pixel at(const Bitmap& bitmap, int x, int y) {
    const auto* pixel = bitmap.row(y) + x * 4;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

testing::Matcher<Pixel> near(const Pixel& wanted, int tolerance) {
    std::vector<testing::Matcher<int>> each;
    for (const int channel : wanted)
        each.push_back(testing::AllOf(testing::Ge(channel - tolerance), testing::Le(channel + tolerance)));
    return testing::ElementsAreArray(each);
}

/// Red in the top left quarter, elsewhere blue of an opacity.
std::string quarters(int alpha = 255) {
    const auto either = [](int corner, int rest) {
        return "'if(lt(X,W/2)*lt(Y,H/2)," + std::to_string(corner) + "," + std::to_string(rest) + ")'";
    };
    return "-f lavfi -i \"color=s=64x48:d=0.12,format=rgba,geq=r=" + either(0xE0, 0x20) +
           ":g=" + either(0x20, 0x60) + ":b=" + either(0x10, 0xC0) + ":a=" + either(255, alpha) + "\" ";
}

Bitmap quartersBitmap(int width, int height) {
    Bitmap bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Pixel& pixel = x < width / 2 && y < height / 2 ? red : blue;
            std::copy(pixel.begin(), pixel.end(), bitmap.row(y) + x * 4);
        }
    return bitmap;
}

std::string message(const std::filesystem::path& path) {
    try {
        PictureFile::read(path, everything);
    } catch (const Problem& problem) {
        return problem.message();
    }
    return "";
}

}

TEST(PictureFile, everyKindHasItsColoursAndItsTransparency) {
    MURBO_NEEDS_FFMPEG();
    struct Case {
        std::string name;
        std::string how;
        Pixel rest = blue;
        int tolerance = 0;
    };
    const std::string solid = quarters() + "-frames:v 1 ";
    const std::string glass = quarters(128) + "-frames:v 1 ";
    const std::string moving = quarters(128) + "-frames:v 3 ";
    const std::vector<Case> cases{
        {"rgb.png", solid + "-pix_fmt rgb24"},
        {"alpha.png", glass + "-pix_fmt rgba", halfBlue, 1},
        {"deep.png", glass + "-pix_fmt rgba64be", halfBlue, 1},
        {"moving.apng", moving + "-pix_fmt rgba", halfBlue, 1},
        {"plain.bmp", solid + "-pix_fmt bgr24"},
        {"lossless.webp", glass + "-c:v libwebp -lossless 1 -pix_fmt bgra", halfBlue, 1},
        {"photo.webp", solid + "-c:v libwebp -quality 95", blue, 4},
        {"glass.webp", glass + "-c:v libwebp -quality 95 -pix_fmt yuva420p", halfBlue, 4},
        {"moving.webp", moving + "-c:v libwebp_anim -lossless 1 -pix_fmt bgra", halfBlue, 1},
        {"still.avif",
         solid + "-c:v libaom-av1 -still-picture 1 -crf 5 -pix_fmt yuv420p -colorspace smpte170m", blue, 8},
        {"photo.jpg", solid + "-q:v 2 -pix_fmt yuvj420p", blue, 4},
        {"sharp.jpg", solid + "-q:v 2 -pix_fmt yuvj444p", blue, 4},
        {"moving.gif", quarters() + "-frames:v 3 -vf \"split[a][b];[a]palettegen[p];[b][p]paletteuse\"", blue,
         2},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Bitmap bitmap = PictureFile::read(made::file(each.name, each.how), everything);
        ASSERT_EQ(bitmap.width(), 64);
        ASSERT_EQ(bitmap.height(), 48);
        EXPECT_THAT(at(bitmap, 8, 8), near(red, each.tolerance));
        EXPECT_THAT(at(bitmap, 54, 40), near(each.rest, each.tolerance));
    }
}

TEST(PictureFile, greyAndPalettesAreFullRange) {
    MURBO_NEEDS_FFMPEG();
    for (const std::string format : {"gray", "gray16be", "ya8", "pal8"}) {
        const std::string how =
            "-f lavfi -i \"color=c=0x606060:s=32x32,format=rgb24,drawbox=0:0:16:16:white:t=fill\" "
            "-frames:v 1 -sws_flags accurate_rnd -pix_fmt ";
        const Bitmap bitmap = PictureFile::read(made::file(format + ".png", how + format), everything);
        EXPECT_THAT(at(bitmap, 4, 4), near({255, 255, 255, 255}, format == "pal8" ? 4 : 1)) << format;
        EXPECT_THAT(at(bitmap, 28, 28), near(grey, format == "pal8" ? 16 : 1)) << format;
    }
}

TEST(PictureFile, printersColoursBecomeLight) {
    const TemporaryFolder folder;
    const auto path = folder / "print.jpg";
    FILE* file = std::fopen(path.c_str(), "wb");
    jpeg_compress_struct state{};
    jpeg_error_mgr errors{};
    state.err = jpeg_std_error(&errors);
    jpeg_create_compress(&state);
    jpeg_stdio_dest(&state, file);
    state.image_width = state.image_height = 16;
    state.input_components = 4;
    state.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&state);
    jpeg_set_quality(&state, 100, TRUE);
    jpeg_start_compress(&state, TRUE);
    // As image programs write it: all of each ink is 0. This one is a dark orange.
    std::array<JSAMPLE, 64> line{};
    for (std::size_t x = 0; x < line.size(); x += 4)
        std::copy_n(std::array{255, 128, 0, 200}.begin(), 4, line.begin() + x);
    JSAMPROW row = line.data();
    for (int y = 0; y < 16; ++y) jpeg_write_scanlines(&state, &row, 1);
    jpeg_finish_compress(&state);
    jpeg_destroy_compress(&state);
    std::fclose(file);
    EXPECT_THAT(at(PictureFile::read(path, everything), 8, 8), near({0, 100, 200, 255}, 3));
}

TEST(PictureFile, aPhoneHeldAnyWayGivesAnUprightPicture) {
    const TemporaryFolder folder;
    const std::string jpeg = Jpeg::encode(quartersBitmap(64, 48), 1);
    // Where the red quarter comes to stand, by orientation: x and y of its middle in sixteenths.
    constexpr int left = 4, right = 12;
    const std::array<std::array<int, 2>, 8> places{{{left, left},
                                                    {right, left},
                                                    {right, right},
                                                    {left, right},
                                                    {left, left},
                                                    {right, left},
                                                    {right, right},
                                                    {left, right}}};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        std::string exif(
            "\xFF\xE1\x00\x22"
            "Exif\0\0"
            "MM\0\x2A\0\0\0\x08\0\x01"
            "\x01\x12\0\x03\0\0\0\x01\0",
            29);
        exif += char(orientation) + std::string(6, '\0');
        const auto path = folder.file("photo.jpg", jpeg.substr(0, 2) + exif + jpeg.substr(2));
        const Bitmap bitmap = PictureFile::read(path, everything);
        EXPECT_EQ(bitmap.width(), orientation < 5 ? 64 : 48);
        EXPECT_EQ(bitmap.height(), orientation < 5 ? 48 : 64);
        const auto [x, y] = places[std::size_t(orientation - 1)];
        EXPECT_THAT(at(bitmap, bitmap.width() * x / 16, bitmap.height() * y / 16), near(red, 4));
        EXPECT_THAT(at(bitmap, bitmap.width() * (16 - x) / 16, bitmap.height() * (16 - y) / 16),
                    near(blue, 4));
    }
}

TEST(PictureFile, aLargePhotoIsKeptSmaller) {
    const TemporaryFolder folder;
    const auto path = folder.file("photo.jpg", Jpeg::encode(quartersBitmap(4000, 3000), 0.8));
    const Bitmap bitmap = PictureFile::read(path, 1'000'000);
    EXPECT_EQ(bitmap.width(), 1155);
    EXPECT_EQ(bitmap.height(), 866);
    EXPECT_THAT(at(bitmap, 300, 200), near(red, 3));
    EXPECT_THAT(at(bitmap, 900, 700), near(blue, 3));
}

TEST(PictureFile, whatIsTooLargeIsRefusedByItsHeader) {
    const TemporaryFolder folder;
    const std::string side("\x00\x00\x4E\x20", 4); // 20,000
    const std::vector<std::string> headers{
        std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16) + side + side + std::string("\x08\x06\0\0\0", 5),
        std::string("\xFF\xD8\xFF\xE0\x00\x04..\xFF\xC2\x00\x11\x08\x4E\x20\x4E\x20\x03", 18),
        std::string("GIF89a\x20\x4E\x20\x4E", 10),
        std::string("RIFF\xFF\0\0\0WEBPVP8X\x0A\0\0\0\0\0\0\0\x1F\x4E\0\x1F\x4E\0", 30),
        std::string("BM\0\0\0\0\0\0\0\0\0\0\0\0\x28\0\0\0\x20\x4E\0\0\xE0\xB1\xFF\xFF", 26),
    };
    for (const auto& header : headers) {
        const auto path = folder.file("huge", header);
        std::filesystem::resize_file(path, 100 << 20);
        EXPECT_EQ(message(path), "“huge” is too large: 20000 × 20000 pixels.") << header.substr(0, 6);
    }
}

TEST(PictureFile, whatIsNoPictureOrBrokenIsRefused) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    std::filesystem::create_symlink("nowhere", folder / "dangling");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::string jpeg = Jpeg::encode(quartersBitmap(64, 48), 0.9);
    folder.file("empty");
    folder.file("text", "Hello there, this is no picture at all.");
    folder.file("noise.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x20\0\0\0\x20", 24) +
                                 std::string(5000, '\x5A'));
    folder.file("noise.jpg", jpeg.substr(0, 30) + std::string(5000, '\x5A'));
    folder.file("noise.webp", std::string("RIFF\xFF\0\0\0WEBPVP8L\xFF\0\0\0\x2F\x20\0\0\0", 25) +
                                  std::string(5000, '\x5A'));
    folder.file("noise.gif", std::string("GIF89a\x20\0\x20\0", 10) + std::string(5000, '\x5A'));
    for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(message(entry.path()), "“" + name + "” holds no picture that can be read.");
    }
    EXPECT_NE(message(folder / "missing.png"), "");
}

TEST(PictureFile, aJpegThatIsDrawnOverWithoutEndIsRefused) {
    const TemporaryFolder folder;
    const std::string jpeg = Jpeg::encode(quartersBitmap(64, 48), 0.9);
    const auto scan = jpeg.find("\xFF\xDA");
    std::string again = jpeg.substr(0, jpeg.size() - 2);
    for (int time = 0; time < 5000; ++time) again += jpeg.substr(scan, jpeg.size() - scan - 2);
    EXPECT_NE(message(folder.file("again.jpg", again + jpeg.substr(jpeg.size() - 2))), "");
}

TEST(PictureFile, packedNotesAreNeverUnpacked) {
    const auto chunk = [](std::string name, std::string inside) {
        return std::string("\0\0\0", 3) + char(inside.size()) + name + inside + "crc.";
    };
    const std::string start = "\x89PNG\r\n\x1A\n" + chunk("IHDR", std::string(13, '\1'));
    const std::string end = chunk("IDAT", "picture") + chunk("IEND", "");
    const std::string noted =
        start + chunk("zTXt", "note") + chunk("iCCP", "profile") + end + chunk("fdAT", "next");
    EXPECT_EQ(PictureBytes::of(PictureHeader::Kind::png, noted).bytes, start + end);
}

}
