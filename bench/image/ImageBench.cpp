// Drawing alone, on one thread, beside what else could do it. Figures are thread CPU time; read them as
// ratios to the yardsticks of the same run.

#include <cmath>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

extern "C" {
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include "platform/image/Image.h"
#include "platform/image/draw/Canvas.h"

using namespace murbo;

namespace {

constexpr Size tall{1080, 1920};

/// Detail of every size, as a camera's picture has, in planes of 8 or 10 bits.
Frame picture(int width, int height, int depth = 8) {
    const int bytes = depth > 8 ? 2 : 1;
    auto memory =
        std::make_shared<std::vector<std::uint8_t>>(std::size_t(width) * height * 3 / 2 * bytes + 64);
    std::uint32_t noise = 1;
    const auto code = [&](int x, int y, double middle, double swing) {
        noise = noise * 1664525 + 1013904223;
        return int((middle + swing * std::sin(x * 0.013) * std::cos(y * 0.017) + double(noise >> 28)) *
                   (1 << (depth - 8)));
    };
    auto* next = memory->data();
    Frame frame;
    frame.width = width;
    frame.height = height;
    frame.depth = depth;
    for (int plane = 0; plane < 3; ++plane) {
        const int wide = plane == 0 ? width : width / 2;
        const int high = plane == 0 ? height : height / 2;
        frame.planes[plane] = next;
        frame.strides[plane] = std::ptrdiff_t(wide) * bytes;
        for (int y = 0; y < high; ++y) {
            for (int x = 0; x < wide; ++x, next += bytes) {
                const int value = plane == 0 ? code(x, y, 110, 70) : code(x, y, 124, 40);
                std::memcpy(next, &value, bytes);
            }
        }
    }
    frame.keeper = memory;
    return frame;
}

Frame highDynamicRange() {
    Frame frame = picture(1920, 1080, 10);
    frame.matrix = Frame::Matrix::bt2020;
    frame.primaries = Frame::Primaries::bt2020;
    frame.transfer = Frame::Transfer::hlg;
    return frame;
}

/// Letters of a caption, as a bitmap that is clear between them.
Image caption() {
    Bitmap bitmap(900, 260);
    for (int y = 0; y < 260; ++y) {
        for (int x = 0; x < 900; ++x) {
            const int alpha =
                x % 60 < 36 && y % 120 < 84 ? std::min(255, 20 * std::min(x % 60 + 1, y % 120 + 1)) : 0;
            std::memset(bitmap.row(y) + x * 4, alpha, 4);
        }
    }
    return Image::bitmap(bitmap);
}

Image panel(const Image& source, const Rect& from, const Rect& to) {
    const auto way = Transform()
                         .translated(-from.x, -from.y)
                         .scaled(to.width / from.width, to.height / from.height)
                         .translated(to.x, to.y);
    return source.clamped().transformed(way).cropped(to);
}

Image split(const Image& source) {
    const Rect all{0, 0, tall.width, tall.height};
    return panel(source, {500, 500, 450, 400}, {0, 960, 1080, 960})
        .over(panel(source, {352, 0, 1216, 1080}, {0, 0, 1080, 960}))
        .over(Image::colour(Colour::black).cropped(all));
}

Image splitWithCaption(const Image& source) {
    return caption().transformed(Transform().translated(90, 830)).over(split(source));
}

void drawn(benchmark::State& state, const Image& image, int width = 1080, int height = 1920) {
    Bitmap target(width, height);
    for (auto _ : state) Canvas::draw(image, target);
}

void encoded(benchmark::State& state, const Image& image) {
    Planes target(1080, 1920);
    for (auto _ : state) Canvas::draw(image, target);
}

Image usual() {
    return Image::frame(picture(1920, 1080));
}

// -------------------------------------------------------------- yardsticks --

void copiedFrame(benchmark::State& state) {
    std::vector<std::uint8_t> from(1080 * 1920 * 4, 7);
    std::vector<std::uint8_t> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copiedFrame)->Name("yardstick: memcpy of a 1080x1920 BGRA frame");

struct Scaler {
    SwsContext* context;
    Scaler(int width, int height, AVPixelFormat from, int wide, int high, AVPixelFormat to, int flags)
        : context(sws_getContext(width, height, from, wide, high, to, flags, nullptr, nullptr, nullptr)) {
        const int* matrix = sws_getCoefficients(SWS_CS_ITU709);
        sws_setColorspaceDetails(context, matrix, 0, matrix, 0, 0, 1 << 16, 1 << 16);
    }
    ~Scaler() { sws_freeContext(context); }
    Scaler(const Scaler&) = delete;
    Scaler& operator=(const Scaler&) = delete;

    void crop(const Frame& frame, int left, int top, int rows, std::uint8_t* out, int outStride) {
        const std::uint8_t* planes[4] = {frame.planes[0] + top * frame.strides[0] + left,
                                         frame.planes[1] + top / 2 * frame.strides[1] + left / 2,
                                         frame.planes[2] + top / 2 * frame.strides[2] + left / 2, nullptr};
        const int strides[4] = {int(frame.strides[0]), int(frame.strides[1]), int(frame.strides[2]), 0};
        std::uint8_t* target[4] = {out, nullptr, nullptr, nullptr};
        const int targetStrides[4] = {outStride, 0, 0, 0};
        sws_scale(context, planes, strides, 0, rows, target, targetStrides);
    }
};

/// The split frame from two scalings into BGRA and one conversion to planes.
void scaledBySwscale(benchmark::State& state) {
    const Frame frame = picture(1920, 1080);
    Bitmap target(1080, 1920);
    Planes planes(1080, 1920);
    Scaler content(1216, 1080, AV_PIX_FMT_YUV420P, 1080, 960, AV_PIX_FMT_BGRA, SWS_BILINEAR);
    Scaler face(450, 400, AV_PIX_FMT_YUV420P, 1080, 960, AV_PIX_FMT_BGRA, SWS_BILINEAR);
    Scaler encode(1080, 1920, AV_PIX_FMT_BGRA, 1080, 1920, AV_PIX_FMT_YUV420P, SWS_BILINEAR);
    for (auto _ : state) {
        content.crop(frame, 352, 0, 1080, target.row(0), int(target.stride()));
        face.crop(frame, 500, 500, 400, target.row(960), int(target.stride()));
        const std::uint8_t* from[4] = {target.row(0), nullptr, nullptr, nullptr};
        const int strides[4] = {int(target.stride()), 0, 0, 0};
        std::uint8_t* to[4] = {planes.plane(0), planes.plane(1), planes.plane(2), nullptr};
        const int toStrides[4] = {int(planes.stride(0)), int(planes.stride(1)), int(planes.stride(2)), 0};
        sws_scale(encode.context, from, strides, 0, 1920, to, toStrides);
    }
}
BENCHMARK(scaledBySwscale)
    ->Name("yardstick: swscale, split frame to planes, no caption")
    ->Unit(benchmark::kMillisecond);

void panelBySwscale(benchmark::State& state) {
    const Frame frame = picture(1920, 1080);
    Bitmap target(1080, 960);
    Scaler content(1216, 1080, AV_PIX_FMT_YUV420P, 1080, 960, AV_PIX_FMT_BGRA, SWS_BILINEAR);
    for (auto _ : state) content.crop(frame, 352, 0, 1080, target.row(0), int(target.stride()));
}
BENCHMARK(panelBySwscale)
    ->Name("yardstick: swscale, crop 1216x1080 to 1080x960 BGRA")
    ->Unit(benchmark::kMillisecond);

void downscaledBySwscale(benchmark::State& state) {
    const Frame frame = picture(3840, 2160);
    Bitmap target(540, 480);
    Scaler content(2430, 2160, AV_PIX_FMT_YUV420P, 540, 480, AV_PIX_FMT_BGRA, SWS_AREA);
    for (auto _ : state) content.crop(frame, 700, 0, 2160, target.row(0), int(target.stride()));
}
BENCHMARK(downscaledBySwscale)
    ->Name("yardstick: swscale area, 4K crop into a 540x480 panel")
    ->Unit(benchmark::kMillisecond);

// ------------------------------------------------------------------ drawing --

void measure(const char* name, void (*run)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
    using State = benchmark::State;
    measure("split frame with caption to planes", [](State& s) { encoded(s, splitWithCaption(usual())); });
    measure("split frame to planes", [](State& s) { encoded(s, split(usual())); });
    measure("split frame to BGRA", [](State& s) { drawn(s, split(usual())); });
    measure("preview: split frame with caption at 540x960", [](State& s) {
        drawn(s, splitWithCaption(usual()).transformed(Transform().scaled(0.5, 0.5)), 540, 960);
    });
    measure("panel: crop 1216x1080 to 1080x960 BGRA", [](State& s) {
        drawn(s, panel(usual(), {352, 0, 1216, 1080}, {0, 0, 1080, 960}), 1080, 960);
    });
    measure("panel: crop 450x400 to 1080x960 BGRA", [](State& s) {
        drawn(s, panel(usual(), {500, 500, 450, 400}, {0, 0, 1080, 960}), 1080, 960);
    });
    measure("frame 1920x1080 to BGRA, 1:1", [](State& s) { drawn(s, usual(), 1920, 1080); });
    measure("BGRA bitmap 1080x1920 to planes", [](State& s) {
        Bitmap bitmap(1080, 1920);
        Canvas::draw(split(usual()), bitmap);
        encoded(s, Image::bitmap(bitmap));
    });
    measure("caption 900x260 over a colour",
            [](State& s) { drawn(s, caption().over(Image::colour(Colour::black)), 900, 260); });
    measure("full frame at opacity 0.5 over another", [](State& s) {
        drawn(s, usual()
                     .transformed(Transform().scaled(0.5625, 1.7777))
                     .faded(0.5)
                     .over(Image::colour(Colour::black)));
    });
    measure("4K crop into a 540x480 panel", [](State& s) {
        drawn(s, panel(Image::frame(picture(3840, 2160)), {700, 0, 2430, 2160}, {0, 0, 540, 480}), 540, 480);
    });
    measure("4K at 10 bits, HLG, into a 540x480 panel", [](State& s) {
        Frame frame = picture(3840, 2160, 10);
        frame.transfer = Frame::Transfer::hlg;
        frame.primaries = Frame::Primaries::bt2020;
        drawn(s, panel(Image::frame(frame), {700, 0, 2430, 2160}, {0, 0, 540, 480}), 540, 480);
    });
    measure("panel of an HLG picture", [](State& s) {
        drawn(s, panel(Image::frame(highDynamicRange()), {352, 0, 1216, 1080}, {0, 0, 1080, 960}), 1080, 960);
    });
    measure("panel of a picture stored on its side", [](State& s) {
        Frame frame = picture(1920, 1080);
        frame.turn = 1;
        drawn(s, panel(Image::frame(frame), {0, 400, 1080, 960}, {0, 0, 1080, 960}), 1080, 960);
    });
    measure("panel turned by 5 degrees", [](State& s) {
        const auto way = Transform().translated(-960, -540).rotated(5).scaled(0.9, 0.9).translated(540, 480);
        drawn(s, usual().clamped().transformed(way), 1080, 960);
    });
    measure("whip: motion blur of 60 px, 1080x1920", [](State& s) {
        drawn(s, split(usual()).clamped().motionBlurred(60, 0).cropped({0, 0, tall.width, tall.height}));
    });
    measure("motion blur of 60 px at 30 degrees", [](State& s) {
        drawn(s, split(usual()).clamped().motionBlurred(60, 30).cropped({0, 0, tall.width, tall.height}));
    });
    measure("zoom blur of 40, 1080x1920", [](State& s) {
        drawn(s,
              split(usual()).clamped().zoomBlurred({540, 960}, 40).cropped({0, 0, tall.width, tall.height}));
    });
    measure("zoom blur of 6, 1080x1920", [](State& s) {
        drawn(s,
              split(usual()).clamped().zoomBlurred({540, 960}, 6).cropped({0, 0, tall.width, tall.height}));
    });
    return true;
}();

}
