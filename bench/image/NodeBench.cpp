// What playbooks ask of the graph beside filters: blends, masks, shapes, scatters of small turned pictures.
// Figures are thread CPU time; read them as ratios to the yardsticks of the same run.

#include "bench/image/Yardstick.h"
#include "platform/image/Image.h"
#include "platform/image/draw/Canvas.h"

#include <cmath>
#include <random>

using namespace murbo;

namespace {

using State = benchmark::State;

constexpr Rect all{0, 0, 1080, 1920};

/// Soft colours all over, a third of them clear where `holes`.
Image picture(unsigned seed, bool holes) {
    Bitmap bitmap(1080, 1920);
    for (int y = 0; y < 1920; ++y) {
        auto* pixel = bitmap.row(y);
        for (int x = 0; x < 1080; ++x, pixel += 4) {
            const int alpha = !holes ? 255 : std::clamp((x + y) % 600 - 200, 0, 255);
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = std::uint8_t((x * seed + y * (channel + 1)) / 4 % 256 * alpha / 255);
            pixel[3] = std::uint8_t(alpha);
        }
    }
    return Image::bitmap(bitmap, !holes);
}

void drawn(State& state, const Image& image) {
    Bitmap target(1080, 1920);
    for (auto _ : state) Canvas::draw(image, target);
}

/// A round badge of soft edges, as an emoji of 160 points comes.
Image badge() {
    Bitmap bitmap(112, 112);
    for (int y = 0; y < 112; ++y) {
        auto* pixel = bitmap.row(y);
        for (int x = 0; x < 112; ++x, pixel += 4) {
            const double inside = std::clamp(50 - std::hypot(x - 55.5, y - 55.5), 0.0, 1.0);
            const double shades[] = {40.0 + x, 90.0 + y, 220, 255};
            for (int channel = 0; channel < 4; ++channel)
                pixel[channel] = std::uint8_t(std::lround(shades[channel] * inside));
        }
    }
    return Image::bitmap(bitmap);
}

/// 200 of one picture all over the frame, as wide as particles are by default.
Image scatter(const Image& picture, double opacity) {
    std::mt19937 generator(5);
    const auto number = [&](double low, double high) {
        return low + (high - low) * double(generator() % 10000) / 9999;
    };
    Image scattered;
    const auto extent = picture.extent();
    for (int i = 0; i < 200; ++i) {
        const double scale = 86.4 * number(0.6, 1.4) / extent.width;
        const auto way = Transform()
                             .translated(-extent.width / 2, -extent.height / 2)
                             .scaled(scale, scale)
                             .rotated(number(0, 360))
                             .translated(number(0, 1080), number(0, 1920));
        scattered = picture.transformed(way).faded(opacity).over(scattered);
    }
    return scattered;
}

void measure(const std::string& name, const std::function<void(State&)>& run) {
    benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
}

void measureBlends() {
    const std::tuple<const char*, Blend, const char*> blends[] = {
        {"normal", Blend::normal, "normal"}, {"multiply", Blend::multiply, "multiply"},
        {"screen", Blend::screen, "screen"}, {"overlay", Blend::overlay, "overlay"},
        {"add", Blend::add, "addition"},     {"soft light", Blend::softLight, "softlight"}};
    for (const auto& [name, blend, mode] : blends) {
        measure(std::string("blend: ") + name + ", 1080x1920",
                [blend = blend](State& s) { drawn(s, picture(3, true).over(picture(2, false), blend)); });
        measure(std::string("yardstick: blend filter, ") + mode,
                [mode = mode](State& s) { filteredByLibrary(s, std::string("blend=all_mode=") + mode, 2); });
    }
}

const bool registered = [] {
    measureBlends();
    measure("blend: soft light over what is half clear",
            [](State& s) { drawn(s, picture(3, true).over(picture(2, true), Blend::softLight)); });
    measure("two pictures alone, 1080x1920",
            [](State& s) { drawn(s, picture(3, true).over(picture(2, false))); });
    measure("rounded rectangle, 1080x1920", [](State& s) {
        drawn(s, Image::roundedRectangle(all, 120, {200, 40, 90, 255}));
    });
    measure("rounded rectangle, turned", [](State& s) {
        drawn(s, Image::roundedRectangle(all, 120, {200, 40, 90, 255})
                     .transformed(Transform().rotated(7).translated(100, -60)));
    });
    measure("rounded outline, 1080x1920", [](State& s) {
        drawn(s, Image::roundedOutline({40, 40, 1000, 1840}, 120, 20, Colour::white));
    });
    measure("gradient, 1080x1920", [](State& s) {
        drawn(s, Image::gradient(all, {20, 40, 90, 255}, {200, 180, 20, 255}));
    });
    measure("gradient, turned", [](State& s) {
        drawn(s, Image::gradient({-500, -500, 2500, 3000}, {20, 40, 90, 255}, {200, 180, 20, 255})
                     .transformed(Transform().rotated(7)));
    });
    measure("picture with round corners, 1080x1920", [](State& s) {
        drawn(s, picture(2, false).masked(Image::roundedRectangle(all, 120, Colour::white)));
    });
    measure("picture masked by a picture, 1080x1920",
            [](State& s) { drawn(s, picture(2, false).masked(picture(3, true))); });
    measure("picture drawn once, shown once", [](State& s) {
        Bitmap target(1080, 1920);
        const Image image = picture(3, true).over(picture(2, false));
        for (auto _ : s) Canvas::draw(image.drawnOnce(), target);
    });
    measure("200 turned glyphs", [](State& s) {
        Bitmap target(1080, 1920);
        const Image glyph = badge();
        for (auto _ : s) Canvas::draw(scatter(glyph.drawnOnce(), 1), target);
    });
    measure("200 turned glyphs, faded", [](State& s) {
        Bitmap target(1080, 1920);
        const Image glyph = badge();
        for (auto _ : s) Canvas::draw(scatter(glyph.drawnOnce(), 0.6), target);
    });
    measure("200 pieces of confetti", [](State& s) {
        drawn(s, scatter(Image::colour({200, 90, 40, 255}).cropped({0, 0, 80, 40}), 1));
    });
    return true;
}();

}
