// Scatters as the stage makes them for each frame, 200 particles of the usual size on 1080x1920: made anew
// and drawn over a colour. Thread CPU time; the bare frame is the yardstick to take off.

#include "core/render/stage/Particles.h"
#include "platform/image/draw/Canvas.h"

#include <benchmark/benchmark.h>

using namespace murbo;

namespace {

using State = benchmark::State;

constexpr double width = 1080;
constexpr double height = 1920;

/// Frames of a second, one after the other.
template <typename Target>
void drawn(State& state, const std::string& text, const std::string& drift) {
    Plan plan;
    plan.frame = {width, height};
    PlaybookMedia media;
    const Stage::Scene scene{Image(), std::nullopt, {}, plan, media};
    PlacedOverlay placed;
    Playbook::Layer layer;
    layer.count = 200;
    layer.drift = drift;
    const Image below = Image::colour({30, 60, 90, 255}).cropped({0, 0, width, height});
    Target target{int(width), int(height)};
    int frame = 0;
    for (auto _ : state) {
        const double held = 1.2 + frame++ % 30 / 30.0;
        const Image scattered =
            text.empty() ? Image()
                         : Stage::Particles::scatter(text, {placed, layer, 0, held, 4, scene}, width * 0.08);
        Canvas::draw(scattered.over(below), target);
    }
}

void measure(const std::string& name, const std::string& text, const std::string& drift) {
    const auto add = [](const std::string& title, auto run) {
        benchmark::RegisterBenchmark(title.c_str(), run)->Unit(benchmark::kMillisecond);
    };
    add(name + " to BGRA", [=](State& state) { drawn<Bitmap>(state, text, drift); });
    add(name + " to planes", [=](State& state) { drawn<Planes>(state, text, drift); });
}

const bool registered = [] {
    measure("yardstick: the bare frame", "", "");
    for (const char* drift : {"float", "burst", "fall"})
        measure(std::string("200 emoji, ") + drift, "😂,🔥,❤️", drift);
    measure("200 letters, fall", "A,ส,!", "fall");
    measure("200 pieces of confetti, fall", "confetti", "fall");
    return true;
}();

}
