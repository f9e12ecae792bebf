#include "platform/image/draw/Flattening.h"
#include "platform/image/filters/Blur.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Comic.h"
#include "platform/image/filters/Glow.h"
#include "platform/image/filters/Pixel.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vhs.h"
#include "platform/image/filters/Vignette.h"
#include "tests/Approved.h"
#include "tests/image/Pictures.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr int width = 48;
constexpr int height = 32;

/// Makes a picture by words, each taking its numbers after it and the pictures made before it.
struct PictureWords {
    explicit PictureWords(const std::string& line) : words(line) {}

    double number() {
        std::string text;
        words >> text;
        return std::stod(text);
    }
    Rect rect() { return {number(), number(), number(), number()}; }
    Colour colour() {
        std::string text;
        words >> text;
        return Colour::hex(text).value();
    }
    Image last() {
        Image image = made.at(made.size() - 1);
        made.pop_back();
        return image;
    }
    /// Several numbers, in the order in which they stand.
    template <std::size_t count>
    std::array<double, count> numbers() {
        std::array<double, count> all{};
        for (double& each : all) each = number();
        return all;
    }
    Transform transform(const std::string& word) {
        if (word == "turn") return Transform().rotated(number());
        const auto [x, y] = numbers<2>();
        if (word == "move") return Transform().translated(x, y);
        return word == "scale" ? Transform().scaled(x, y) : Transform{1, x, y, 1, 0, 0};
    }
    Image bitmap(bool opaque) {
        const auto [wide, high] = numbers<2>();
        return Image::bitmap(bitmapOf(int(wide), int(high),
                                      [opaque](int x, int y) {
                                          auto colour = speckled(x, y);
                                          if (!opaque) colour.alpha = std::uint8_t(x * 20);
                                          return colour;
                                      }),
                             opaque);
    }
    Image frame() {
        const auto [wide, high, turn, aspect] = numbers<4>();
        Frame frame = form(int(wide), int(high));
        frame.turn = int(turn);
        frame.pixelAspect = aspect;
        return Image::frame(frameOf(frame, waves));
    }

    std::optional<Image> source(const std::string& word) {
        if (word == "colour") return Image::colour(colour());
        if (word == "bitmap" || word == "opaque") return bitmap(word == "opaque");
        if (word == "frame") return frame();
        if (word != "gradient" && word != "round" && word != "outline") return {};
        const Rect place = rect();
        const double radius = word == "gradient" ? 0 : number();
        const double line = word == "outline" ? number() : 0;
        const Colour first = colour();
        if (word == "gradient") return Image::gradient(place, first, colour());
        return word == "round" ? Image::roundedRectangle(place, radius, first)
                               : Image::roundedOutline(place, radius, line, first);
    }
    std::optional<Filter> filter(const std::string& word) {
        if (word == "blur") return Filters::Blur{number()};
        if (word == "glow") return Filters::Glow{number(), number()};
        if (word == "mosaic") return Filters::Pixel{number(), {number(), number()}};
        if (word == "posterize") return Filters::Posterize{int(number())};
        if (word == "vignette") return Filters::Vignette{number(), number()};
        if (word == "sepia") return Filters::ColourMatrix::sepia(number());
        if (word == "saturated") return Filters::ColourMatrix::saturated(number());
        if (word == "brightened") return Filters::ColourMatrix::brightened(number());
        if (word == "tinted") return Filters::ColourMatrix::tinted(colour());
        if (word == "comic") return Filters::Comic{};
        if (word == "vhs") return Filters::Vhs{number(), number(), std::int64_t(number())};
        return {};
    }
    Image changed(const std::string& word) {
        const Image of = last();
        if (const auto found = filter(word)) return of.filtered(*found);
        if (word == "crop") return of.cropped(rect());
        if (word == "fade") return of.faded(number());
        if (word == "clamp") return of.clamped();
        if (word == "once") return of.drawnOnce();
        if (word == "later") return Image::later(rect(), [of] { return of; });
        if (word == "masked") return last().masked(of);
        if (word == "over") return of.over(last(), blends[int(number())]);
        if (word != "zoom" && word != "smear") return of.transformed(transform(word));
        const auto [x, y] = numbers<2>();
        return word == "zoom" ? of.zoomBlurred({x, y}, number()) : of.motionBlurred(x, y);
    }
    Image run() {
        for (std::string word; words >> word;) {
            const auto found = source(word);
            made.push_back(found ? *found : changed(word));
        }
        return last();
    }

    std::istringstream words;
    std::vector<Image> made;
};

std::string text(const Rect& rect) {
    return rect.empty() ? "none"
           : rect.isEverything()
               ? "all"
               : fmt::format("{:.6g},{:.6g} {:.6g}x{:.6g}", rect.x, rect.y, rect.width, rect.height);
}

std::string text(const PixelRect& rect) {
    return rect.empty() ? "none" : fmt::format("{},{}-{},{}", rect.left, rect.top, rect.right, rect.bottom);
}

/// The operations from the outermost inward, above all else what lies on top.
std::string graph(const ImageNode& node) {
    constexpr const char* names[] = {"fill",     "bitmap",  "frame", "crop",  "transformed", "over",
                                     "clamp",    "fade",    "zoom",  "smear", "filtered",    "mask",
                                     "gradient", "rounded", "later", "once"};
    return std::visit(
        [&](const auto& kind) {
            const std::string name = names[node.kind.index()];
            if constexpr (requires { kind.above; })
                return fmt::format("({}) over ({})", graph(*kind.above), graph(*kind.below));
            else if constexpr (requires { kind.mask; })
                return fmt::format("({}) masked ({})", graph(*kind.of), graph(*kind.mask));
            else if constexpr (requires { kind.of; })
                return name + " " + graph(*kind.of);
            else
                return name;
        },
        node.kind);
}

std::string layers(const Image& image) {
    std::string all;
    for (const auto& layer : layersOf(*image.node(), Transform(), {0, 0, width, height})) {
        constexpr const char* contents[] = {"flat", "on grid", "drawn"};
        all += fmt::format("\n  {} {}, solid {}", contents[layer.content.index()], text(layer.bounds),
                           text(layer.solid));
        if (layer.opacity != 255) all += fmt::format(", opacity {}", layer.opacity);
        if (layer.blend != Blend::normal) all += fmt::format(", blend {}", int(layer.blend));
        if (!layer.edges.empty()) all += fmt::format(", {} edges", layer.edges.size());
        if (!layer.masks.empty()) all += fmt::format(", {} masks", layer.masks.size());
    }
    return all;
}

/// Some of its pixels, as red, green, blue and alpha; and a sum over all of them.
std::string pixels(const Image& image) {
    const Bitmap bitmap = drawn(image, width, height);
    std::string all;
    for (const int y : {2, 9, 16, 30}) {
        all += "\n   ";
        for (const int x : {0, 7, 13, 20, 31, 47}) {
            const auto [red, green, blue, alpha] = at(bitmap, x, y);
            all +=
                alpha == 0 ? " ........" : fmt::format(" {:02X}{:02X}{:02X}{:02X}", red, green, blue, alpha);
        }
    }
    std::uint64_t sum = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < 4 * width; ++x) sum = (sum * 31 + bitmap.row(y)[x]) % 1'000'003;
    return all + fmt::format("  sum {}\n", sum);
}

}

TEST(Images, areMadeAndDrawnAsApproved) {
    std::string all = "// Pictures by words, each after those that it takes; drawn on 48 by 32 pixels.\n";
    for (const auto& line : linesOf("image/approved/Painter.txt")) {
        if (!line.starts_with("> ")) continue;
        const Image image = PictureWords(line.substr(2)).run();
        const ImageNode& node = *image.node();
        all +=
            fmt::format("{}\n  {}\n  extent {}, body {}, opaque {}{}", line, graph(node), text(node.extent),
                        text(node.body), text(node.opaque), node.single ? ", single" : "");
        all += layers(image) + pixels(image);
    }
    expectApproved("image/approved/Painter.txt", all);
}
