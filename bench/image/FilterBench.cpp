// Each filter on a frame of 1080x1920, on one thread, beside the nearest that FFmpeg has. Its filters work on
// pixels that lie ready; ours draw the frame out of its decoder's planes too ("no filter" is that alone).

#include "platform/image/Image.h"
#include "platform/image/draw/Canvas.h"
#include "platform/image/filters/Blur.h"
#include "platform/image/filters/ColourCube.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Comic.h"
#include "platform/image/filters/Glow.h"
#include "platform/image/filters/Pixel.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vhs.h"
#include "platform/image/filters/Vignette.h"

#include <cmath>
#include <cstdio>
#include <vector>

#include <benchmark/benchmark.h>

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
#include <libavutil/opt.h>
}

using namespace murbo;

namespace {

constexpr int width = 1080;
constexpr int height = 1920;

/// Soft shapes and fine grain, as a camera's picture has.
int sample(int plane, int x, int y) {
    const std::uint32_t grain = (std::uint32_t(x) * 374761393u + std::uint32_t(y) * 668265263u) >> 28;
    return int(110 + 70 * std::sin(x * 0.013 + plane) * std::cos(y * 0.017) + grain);
}

Image picture() {
    auto memory = std::make_shared<std::vector<std::uint8_t>>(width * height * 3 / 2);
    Frame frame;
    frame.width = width;
    frame.height = height;
    auto* next = memory->data();
    for (int plane = 0; plane < 3; ++plane) {
        const int share = plane == 0 ? 1 : 2;
        frame.planes[plane] = next;
        frame.strides[plane] = width / share;
        for (int y = 0; y < height / share; ++y) {
            for (int x = 0; x < width / share; ++x)
                *next++ = std::uint8_t(sample(plane, x * share, y * share));
        }
    }
    frame.keeper = memory;
    return Image::frame(frame);
}

void drawn(benchmark::State& state, const Filter& filter) {
    const Image image = picture();
    const Image filtered = image.clamped().filtered(filter).cropped(image.extent());
    Bitmap target(width, height);
    for (auto _ : state) Canvas::draw(filtered, target);
}

void drawnPlain(benchmark::State& state) {
    const Image image = picture();
    Bitmap target(width, height);
    for (auto _ : state) Canvas::draw(image, target);
}

/// One frame through a chain of FFmpeg's filters, again and again.
class Chain {
public:
    Chain(const std::string& words, AVPixelFormat format) : graph(avfilter_graph_alloc()) {
        graph->nb_threads = 1;
        char form[99];
        std::snprintf(form, sizeof form, "video_size=%dx%d:pix_fmt=%d:time_base=1/30", width, height, format);
        avfilter_graph_create_filter(&source, avfilter_get_by_name("buffer"), "in", form, nullptr, graph);
        avfilter_graph_create_filter(&sink, avfilter_get_by_name("buffersink"), "out", nullptr, nullptr,
                                     graph);
        AVFilterInOut* ends[] = {end("in", source), end("out", sink)};
        ok = avfilter_graph_parse_ptr(graph, words.c_str(), &ends[1], &ends[0], nullptr) >= 0 &&
             avfilter_graph_config(graph, nullptr) >= 0;
        for (auto& each : ends) avfilter_inout_free(&each);
        frame = av_frame_alloc();
        frame->width = width;
        frame->height = height;
        frame->format = format;
        av_frame_get_buffer(frame, 64);
        for (int plane = 0; plane < 4 && frame->data[plane]; ++plane) {
            const bool halved = format == AV_PIX_FMT_YUV420P && plane > 0;
            for (int y = 0; y < (halved ? height / 2 : height); ++y) {
                auto* row = frame->data[plane] + std::ptrdiff_t(y) * frame->linesize[plane];
                for (int x = 0; x < frame->linesize[plane]; ++x) row[x] = std::uint8_t(sample(plane, x, y));
            }
        }
    }
    ~Chain() {
        av_frame_free(&frame);
        avfilter_graph_free(&graph);
    }
    Chain(const Chain&) = delete;

    bool run() {
        if (!ok) return false;
        AVFrame* result = av_frame_alloc();
        frame->pts++;
        const bool done = av_buffersrc_add_frame_flags(source, frame, AV_BUFFERSRC_FLAG_KEEP_REF) >= 0 &&
                          av_buffersink_get_frame(sink, result) >= 0;
        av_frame_free(&result);
        return done;
    }

private:
    static AVFilterInOut* end(const char* name, AVFilterContext* context) {
        AVFilterInOut* result = avfilter_inout_alloc();
        result->name = av_strdup(name);
        result->filter_ctx = context;
        return result;
    }

    AVFilterGraph* graph;
    AVFilterContext* source = nullptr;
    AVFilterContext* sink = nullptr;
    AVFrame* frame = nullptr;
    bool ok = false;
};

void throughFfmpeg(benchmark::State& state, const char* words, AVPixelFormat format) {
    Chain chain(words, format);
    for (auto _ : state) {
        if (!chain.run()) return state.SkipWithError("this FFmpeg has no such filter");
    }
}

Filters::ColourCube greenKey() {
    Filters::ColourCube cube;
    auto values = std::make_shared<std::vector<float>>();
    for (int at = 0; at < 32 * 32 * 32; ++at) {
        const float red = float(at % 32) / 31, green = float(at / 32 % 32) / 31, blue = float(at / 1024) / 31;
        const float alpha = std::min(1.0f, std::max(0.0f, 1.5f - 2 * (green - std::max(red, blue))));
        for (const float value : {red * alpha, green * alpha, blue * alpha, alpha}) values->push_back(value);
    }
    cube.values = values;
    return cube;
}

void ours(const char* name, const Filter& filter) {
    benchmark::RegisterBenchmark(name, [filter](benchmark::State& state) {
        drawn(state, filter);
    })->Unit(benchmark::kMillisecond);
}

void yardstick(const char* words, AVPixelFormat format) {
    benchmark::RegisterBenchmark((std::string("yardstick: ") + words).c_str(), [=](benchmark::State& state) {
        throughFfmpeg(state, words, format);
    })->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
    benchmark::RegisterBenchmark("filter: none, the frame alone", drawnPlain)->Unit(benchmark::kMillisecond);
    ours("filter: mono", Filters::ColourMatrix::mono());
    yardstick("colorchannelmixer=.34:.55:.11:0:.34:.55:.11:0:.34:.55:.11", AV_PIX_FMT_BGRA);
    ours("filter: sepia", Filters::ColourMatrix::sepia(0.9));
    yardstick("colorchannelmixer=.393:.769:.189:0:.349:.686:.168:0:.272:.534:.131", AV_PIX_FMT_BGRA);
    ours("filter: saturate", Filters::ColourMatrix::saturated(1.6));
    yardstick("hue=s=1.6", AV_PIX_FMT_YUV420P);
    ours("filter: bright", Filters::ColourMatrix::brightened(0.12));
    yardstick("eq=brightness=0.12", AV_PIX_FMT_YUV420P);
    ours("filter: invert", Filters::ColourMatrix::inverted());
    yardstick("negate", AV_PIX_FMT_BGRA);
    ours("filter: posterise", Filters::Posterize{6});
    yardstick("lutrgb=r=floor(val/43)*51:g=floor(val/43)*51:b=floor(val/43)*51", AV_PIX_FMT_BGRA);
    ours("filter: cube of 32", greenKey());
    yardstick("lut3d=interp=tetrahedral", AV_PIX_FMT_BGRA); // its table, without a file, changes nothing
    yardstick("chromakey=green:0.2:0.1", AV_PIX_FMT_YUVA420P);
    ours("filter: blur 18", Filters::Blur{18});
    yardstick("gblur=sigma=18:steps=3", AV_PIX_FMT_YUV420P);
    yardstick("boxblur=18:3", AV_PIX_FMT_YUV420P);
    ours("filter: glow 14", Filters::Glow{14, 0.9});
    yardstick("split[a][b];[b]gblur=sigma=14:steps=3[c];[a][c]blend=all_mode=screen", AV_PIX_FMT_YUV420P);
    ours("filter: pixel 24", Filters::Pixel{24, {width / 2.0, height / 2.0}});
    yardstick("pixelize=w=24:h=24", AV_PIX_FMT_YUV420P);
    ours("filter: vignette", Filters::Vignette{1.2, 2});
    yardstick("vignette", AV_PIX_FMT_YUV420P);
    ours("filter: comic", Filters::Comic{});
    yardstick("edgedetect=mode=colormix:high=0.1", AV_PIX_FMT_GBRP);
    yardstick("bilateral=sigmaS=3.5", AV_PIX_FMT_YUV420P);
    ours("filter: vhs", Filters::Vhs{6, 2, 5});
    yardstick("rgbashift=rh=6,noise=alls=20:allf=t,eq=saturation=0.7:contrast=1.1", AV_PIX_FMT_GBRP);
    return true;
}();

}
