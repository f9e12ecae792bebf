#include "platform/image/Jpeg.h"
#include "platform/media/PictureFile.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"
#include "tests/media/Made.h"

#include <jpeglib.h>
#include <sys/stat.h>

namespace murbo {
namespace {

constexpr double everything = 1e9;

using Pixel = std::array<int, 4>; // blue, green, red, alpha; premultiplied
constexpr Pixel red{0x10, 0x20, 0xE0, 255};
constexpr Pixel blue{0xC0, 0x60, 0x20, 255};
constexpr Pixel halfBlue{0x60, 0x30, 0x10, 128};
constexpr Pixel grey{88, 88, 88, 255}; // the light of both
constexpr Pixel halfGrey{44, 44, 44, 128};

/// How far a pixel is from what it should be, in the channel that is farthest.
int off(const Bitmap& bitmap, int x, int y, const Pixel& wanted) {
    int farthest = 0;
    for (int channel = 0; channel < 4; ++channel)
        farthest =
            std::max(farthest, std::abs(bitmap.row(y)[x * 4 + channel] - wanted[std::size_t(channel)]));
    return farthest;
}

/// For the ffmpeg program: red in the top left quarter, elsewhere blue of an opacity.
std::string quarters(int alpha = 255) {
    const auto either = [](int corner, int rest) {
        return "'if(lt(X,W/2)*lt(Y,H/2)," + std::to_string(corner) + "," + std::to_string(rest) + ")'";
    };
    return "-f lavfi -i \"color=s=64x48:d=0.12,format=rgba,geq=r=" + either(0xE0, 0x20) +
           ":g=" + either(0x20, 0x60) + ":b=" + either(0x10, 0xC0) + ":a=" + either(255, alpha) + "\" ";
}

/// The same as a JPEG.
std::string photo(int width = 64, int height = 48) {
    Bitmap bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            std::ranges::copy(x < width / 2 && y < height / 2 ? red : blue, bitmap.row(y) + x * 4);
    return Jpeg::encode(bitmap, 0.95);
}

}

TEST(PictureFile, everyKindHasItsColoursAndItsTransparency) {
    MURBO_NEEDS_FFMPEG();
    const std::string solid = quarters() + "-frames:v 1 ";
    const std::string glass = quarters(128) + "-frames:v 1 ";
    const std::string moving = quarters(128) + "-frames:v 3 ";
    struct Case {
        std::string name, how;
        Pixel rest = blue;
        int tolerance = 0;
        Pixel corner = red;
    };
    for (const auto& [name, how, rest, tolerance, corner] : std::vector<Case>{
             {"rgb.png", solid + "-pix_fmt rgb24"},
             {"alpha.png", glass + "-pix_fmt rgba", halfBlue, 1},
             {"deep.png", glass + "-pix_fmt rgba64be", halfBlue, 1},
             {"grey.png", solid + "-pix_fmt gray", grey, 1, grey},
             {"deepgrey.png", solid + "-pix_fmt gray16be", grey, 1, grey},
             {"greyalpha.png", glass + "-pix_fmt ya8", halfGrey, 1, grey},
             {"deepgreyalpha.png", glass + "-pix_fmt ya16be", halfGrey, 1, grey},
             {"moving.apng", moving + "-pix_fmt rgba", halfBlue, 1},
             {"plain.bmp", solid + "-pix_fmt bgr24"},
             {"lossless.webp", glass + "-c:v libwebp -lossless 1 -pix_fmt bgra", halfBlue, 1},
             {"photo.webp", solid + "-c:v libwebp -quality 95", blue, 4},
             {"glass.webp", glass + "-c:v libwebp -quality 95 -pix_fmt yuva420p", halfBlue, 4},
             {"moving.webp", moving + "-c:v libwebp_anim -lossless 1 -pix_fmt bgra", halfBlue, 1},
             {"still.avif", solid + "-c:v libaom-av1 -still-picture 1 -crf 5 -pix_fmt yuv420p", blue, 8},
             {"photo.jpg", solid + "-q:v 2 -pix_fmt yuvj420p", blue, 4},
             {"sharp.jpg", solid + "-q:v 2 -pix_fmt yuvj444p", blue, 4},
             {"moving.gif", quarters() + "-vf 'split[a][b];[a]palettegen[p];[b][p]paletteuse'", blue, 2},
         }) {
        SCOPED_TRACE(name);
        const Bitmap bitmap = PictureFile::read(made::file(name, how), everything);
        ASSERT_EQ(bitmap.width(), 64);
        ASSERT_EQ(bitmap.height(), 48);
        EXPECT_LE(off(bitmap, 8, 8, corner), tolerance);
        EXPECT_LE(off(bitmap, 54, 40, rest), tolerance);
    }
}

TEST(PictureFile, printersColoursBecomeLight) {
    jpeg_compress_struct state{};
    jpeg_error_mgr errors{};
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    state.err = jpeg_std_error(&errors);
    jpeg_create_compress(&state);
    jpeg_mem_dest(&state, &memory, &size);
    state.image_width = state.image_height = 8;
    state.input_components = 4;
    state.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&state);
    jpeg_set_quality(&state, 100, TRUE);
    jpeg_start_compress(&state, TRUE);
    std::array<JSAMPLE, 32> line{}; // a dark orange; 0 is all of an ink, as image programs write it
    for (std::size_t at = 0; at < line.size(); ++at) line[at] = std::array{255, 128, 0, 200}[at % 4];
    JSAMPROW row = line.data();
    while (state.next_scanline < state.image_height) jpeg_write_scanlines(&state, &row, 1);
    jpeg_finish_compress(&state);
    jpeg_destroy_compress(&state);
    const TemporaryFolder folder;
    const auto path = folder.file("print.jpg", {reinterpret_cast<char*>(memory), size});
    std::free(memory);
    EXPECT_LE(off(PictureFile::read(path, everything), 4, 4, {0, 100, 200, 255}), 3);
}

TEST(PictureFile, aPhoneHeldAnyWayGivesAnUprightPicture) {
    const TemporaryFolder folder;
    const std::string jpeg = photo();
    // Whether the red quarter comes to stand on the right, and at the bottom, for orientations 1 to 8.
    constexpr std::array right{false, true, true, false, false, true, true, false};
    constexpr std::array bottom{false, false, true, true, false, false, true, true};
    for (std::size_t index = 0; index < 8; ++index) {
        SCOPED_TRACE(index + 1);
        const std::string exif = std::string(
                                     "\xFF\xE1\x00\x22"
                                     "Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0",
                                     29) +
                                 char(index + 1) + std::string(6, '\0');
        const std::string before =
            index % 2 ? std::string("\xFF\xE0\0\x04JF", 6) : ""; // another header first
        const auto path = folder.file("photo.jpg", jpeg.substr(0, 2) + before + exif + jpeg.substr(2));
        for (const int part : {1, 2}) { // also where it is kept smaller
            const Bitmap bitmap = PictureFile::read(path, part == 1 ? everything : 64 * 48 / 4);
            EXPECT_EQ(bitmap.width(), (index < 4 ? 64 : 48) / part);
            EXPECT_EQ(bitmap.height(), (index < 4 ? 48 : 64) / part);
            for (const bool itself : {true, false}) {
                const int x = right[index] == itself ? bitmap.width() * 3 / 4 : bitmap.width() / 4;
                const int y = bottom[index] == itself ? bitmap.height() * 3 / 4 : bitmap.height() / 4;
                EXPECT_LE(off(bitmap, x, y, itself ? red : blue), 4);
            }
        }
    }
}

TEST(PictureFile, aLargePhotoIsKeptSmaller) {
    const TemporaryFolder folder;
    const Bitmap bitmap = PictureFile::read(folder.file("photo.jpg", photo(4000, 3000)), 1'000'000);
    EXPECT_EQ(bitmap.width(), 1155);
    EXPECT_EQ(bitmap.height(), 866);
    EXPECT_LE(off(bitmap, 300, 200, red), 3);
    EXPECT_LE(off(bitmap, 900, 700, blue), 3);
    for (const auto& [width, height] : {std::pair{4000, 1}, {1, 4000}}) {
        const Bitmap thread = PictureFile::read(folder.file("thread.jpg", photo(width, height)), 100);
        EXPECT_EQ(std::min(thread.width(), thread.height()), 1) << "never less than a pixel";
        EXPECT_EQ(std::max(thread.width(), thread.height()), 100) << "nor more than are kept";
    }
}

TEST(PictureFile, aLongPictureIsRefusedOnlyWhereItIsTransparent) {
    MURBO_NEEDS_FFMPEG();
    const std::string strip = "-f lavfi -i color=red:s=33000x16:d=0.1 -frames:v 1 -pix_fmt ";
    const auto read = [&](const std::string& format) {
        return PictureFile::read(made::file("long." + format + ".png", strip + format), 10'000);
    };
    EXPECT_LE(off(read("rgb24"), 2000, 1, {0, 0, 254, 255}), 1);
    EXPECT_EQ(problemOf([&] { read("rgba"); }), "“long.rgba.png” is too large: 33000 × 16 pixels.");
}

TEST(PictureFile, whatIsNoPictureOrBrokenIsRefused) {
    const TemporaryFolder folder;
    const std::string noise(5000, '\x5A');
    std::filesystem::create_directory(folder / "folder");
    std::filesystem::create_symlink("nowhere", folder / "dangling");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    folder.file("empty");
    folder.file("text", "Hello there, this is no picture at all.");
    folder.file("noise.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x20\0\0\0\x20", 24) + noise);
    folder.file("noise.jpg", photo().substr(0, 30) + noise);
    folder.file("noise.webp", std::string("RIFF\xFF\0\0\0WEBPVP8L\xFF\0\0\0\x2F\x20\0\0\0", 25) + noise);
    folder.file("noise.gif", std::string("GIF89a\x20\0\x20\0", 10) + noise);
    for (const auto& entry : std::filesystem::directory_iterator(folder.path))
        EXPECT_EQ(problemOf([&] { PictureFile::read(entry.path(), everything); }),
                  "“" + entry.path().filename().string() + "” holds no picture that can be read.");
}

}
