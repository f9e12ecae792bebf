#include "platform/media/Deinterlacer.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

#include <fmt/format.h>

namespace murbo {

void Deinterlacer::FreeGraph::operator()(AVFilterGraph* held) const {
    avfilter_graph_free(&held);
}

std::optional<Deinterlacer> Deinterlacer::make(const AVFrame& like, AVRational timeBase) {
    Deinterlacer made;
    made.base = timeBase;
    made.graph.reset(avfilter_graph_alloc());
    if (!made.graph || !made.build(like)) return std::nullopt;
    return made;
}

bool Deinterlacer::build(const AVFrame& like) {
    width = like.width;
    height = like.height;
    format = like.format;
    graph->nb_threads = 1;
    const std::string from = fmt::format("video_size={}x{}:pix_fmt={}:time_base={}/{}:pixel_aspect=1/1",
                                         width, height, format, base.num, base.den);
    AVFilterContext* filter = nullptr;
    const auto add = [&](AVFilterContext** made, const char* name, const char* settings) {
        return avfilter_graph_create_filter(made, avfilter_get_by_name(name), name, settings, nullptr,
                                            graph.get()) >= 0;
    };
    return add(&source, "buffer", from.c_str()) &&
           add(&filter, "bwdif", "mode=send_frame:parity=auto:deint=interlaced") &&
           add(&sink, "buffersink", nullptr) && avfilter_link(source, 0, filter, 0) >= 0 &&
           avfilter_link(filter, 0, sink, 0) >= 0 && avfilter_graph_config(graph.get(), nullptr) >= 0;
}

bool Deinterlacer::takes(const AVFrame& picture) const {
    return picture.width == width && picture.height == height && picture.format == format;
}

bool Deinterlacer::put(AVFrame* picture) {
    return av_buffersrc_add_frame(source, picture) >= 0;
}

bool Deinterlacer::end() {
    return !std::exchange(ended, true) && av_buffersrc_add_frame(source, nullptr) >= 0;
}

bool Deinterlacer::take(AVFrame* picture) {
    if (av_buffersink_get_frame(sink, picture) < 0) return false;
    picture->pts = av_rescale_q(picture->pts, av_buffersink_get_time_base(sink), base);
    return true;
}

}
