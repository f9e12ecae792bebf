#pragma once

#include "platform/media/FFmpeg.h"

#include <optional>

struct AVFilterContext;
struct AVFilterGraph;

namespace murbo {

/// Turns interlaced pictures into whole ones, one for one; others pass as they are. It looks at a picture's
/// neighbours, so each comes out once the next is in.
class Deinterlacer {
public:
    /// For pictures like this one. `timeBase` is that of their timestamps.
    static std::optional<Deinterlacer> make(const AVFrame& like, AVRational timeBase);

    Deinterlacer(Deinterlacer&&) noexcept = default;
    Deinterlacer& operator=(Deinterlacer&&) noexcept = default;

    bool takes(const AVFrame& picture) const;
    /// Takes the picture over, unless it answers false. `pts` is the time that it comes out with.
    bool put(AVFrame* picture);
    /// No more will be put in: the last one comes out. False where it was called before.
    bool end();
    /// False where more must be put in first.
    bool take(AVFrame* picture);

private:
    struct FreeGraph {
        void operator()(AVFilterGraph* graph) const;
    };

    Deinterlacer() = default;
    bool build(const AVFrame& like);

    std::unique_ptr<AVFilterGraph, FreeGraph> graph;
    AVFilterContext* source = nullptr;
    AVFilterContext* sink = nullptr;
    AVRational base{1, 1};
    bool ended = false;
    int width = 0;
    int height = 0;
    int format = -1;
};

}
