#include "bench/image/Yardstick.h"

#include <vector>

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
}

namespace murbo {
namespace {

AVFrame* picture(unsigned seed) {
    AVFrame* frame = av_frame_alloc();
    frame->width = 1080;
    frame->height = 1920;
    frame->format = AV_PIX_FMT_GBRAP;
    av_frame_get_buffer(frame, 0);
    for (int plane = 0; plane < 4; ++plane) {
        for (int y = 0; y < frame->height; ++y) {
            for (int x = 0; x < frame->width; ++x)
                frame->data[plane][y * frame->linesize[plane] + x] = std::uint8_t(x * seed + y * (plane + 1));
        }
    }
    return frame;
}

}

void filteredByLibrary(benchmark::State& state, const std::string& description, int inputs) {
    AVFilterGraph* graph = avfilter_graph_alloc();
    graph->nb_threads = 1;
    std::string text;
    for (int input = 0; input < inputs; ++input)
        text += "buffer=video_size=1080x1920:pix_fmt=gbrap:time_base=1/30[i" + std::to_string(input) + "];";
    for (int input = 0; input < inputs; ++input) text += "[i" + std::to_string(input) + "]";
    text += description + ",format=gbrap,buffersink";
    AVFilterInOut* open = nullptr;
    AVFilterInOut* ends = nullptr;
    const bool made = avfilter_graph_parse2(graph, text.c_str(), &open, &ends) >= 0 &&
                      avfilter_graph_config(graph, nullptr) >= 0;
    if (!made) return state.SkipWithError("the filter graph can't be made");
    std::vector<AVFilterContext*> sources;
    AVFilterContext* sink = nullptr;
    for (unsigned at = 0; at < graph->nb_filters; ++at) {
        const std::string kind = graph->filters[at]->filter->name;
        if (kind == "buffer") sources.push_back(graph->filters[at]);
        if (kind == "buffersink") sink = graph->filters[at];
    }
    std::vector<AVFrame*> frames;
    for (int input = 0; input < inputs; ++input) frames.push_back(picture(unsigned(input) + 2));
    AVFrame* result = av_frame_alloc();
    std::int64_t time = 0;
    int drawn = 0;
    for (auto _ : state) {
        for (int input = 0; input < inputs; ++input) {
            frames[input]->pts = time;
            if (av_buffersrc_write_frame(sources[input], frames[input]) < 0) break;
        }
        ++time;
        while (av_buffersink_get_frame(sink, result) >= 0) {
            av_frame_unref(result);
            ++drawn;
        }
    }
    if (drawn + 2 < time) state.SkipWithError("the filter graph gave too few pictures");
    av_frame_free(&result);
    for (auto* frame : frames) av_frame_free(&frame);
    avfilter_graph_free(&graph);
}

}
