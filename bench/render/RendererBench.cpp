// Drawing one finished frame, from decoded planes to planes for the encoder.

#include "core/playbooks/Stock.h"
#include "core/render/Renderer.h"
#include "platform/image/draw/Canvas.h"

#include <cstring>

#include <benchmark/benchmark.h>

namespace murbo {
namespace {

/// A decoded 1920x1080 picture with something in every pixel.
Image footage() {
    auto planes = std::make_shared<Planes>(1920, 1080);
    for (int index = 0; index < 3; ++index) {
        const int height = index == 0 ? 1080 : 540;
        for (int y = 0; y < height; ++y) {
            auto* row = planes->plane(index) + y * planes->stride(index);
            const int width = index == 0 ? 1920 : 960;
            for (int x = 0; x < width; ++x)
                row[x] = static_cast<std::uint8_t>(40 + (x * 7 + y * 13 + x * y / 64) % 160);
        }
    }
    Frame frame;
    frame.width = 1920;
    frame.height = 1080;
    for (int index = 0; index < 3; ++index) {
        frame.planes[index] = planes->plane(index);
        frame.strides[index] = planes->stride(index);
    }
    frame.keeper = planes;
    return Image::frame(frame);
}

Plan plan(Shot::Layout layout, const std::string& transition, const std::string& caption) {
    Plan plan;
    plan.frame = {1080, 1920};
    Shot shot;
    shot.layout = layout;
    if (!transition.empty()) shot.transition = transition;
    plan.shots.push_back({0, 10, shot, false});
    plan.style = CaptionStyle::builtIn()[0];
    CaptionCue cue;
    cue.end = 10;
    cue.text = caption;
    if (!caption.empty()) plan.cues.push_back(cue);
    return plan;
}

void draw(benchmark::State& state, const Plan& plan, double time) {
    CaptionCache captions;
    PlaybookMedia media;
    const auto picture = footage();
    Planes target(1080, 1920);
    for (auto _ : state) {
        Canvas::draw(Renderer::render(picture, {}, plan, time, captions, media), target);
        benchmark::DoNotOptimize(target.plane(0)[0]);
    }
    state.counters["aim_ms"] = 5; // a split frame with a caption, on one core
}

/// A split frame in the middle of a playbook.
Plan with(const Book& book) {
    auto plan = murbo::plan(Shot::Layout::split, "", "");
    const double middle = 5;
    const double length = book.playbook.naturalLength();
    if (book.playbook.kind == "layout") {
        plan.shots[0].shot.playbook = book.id();
        plan.layouts.emplace(book.id(), book);
    } else {
        plan.overlays.push_back({.start = middle - length / 2,
                                 .end = middle + length / 2,
                                 .book = book,
                                 .values = book.values({})});
    }
    return plan;
}

constexpr auto split = Shot::Layout::split;
constexpr auto whole = Shot::Layout::content;
constexpr double still = 5;    // the caption lies still
constexpr double moving = 0.1; // the caption still grows

BENCHMARK_CAPTURE(draw, split, plan(split, "", ""), still)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, splitCaption, plan(split, "", "Hello สวัสดีครับ"), still)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, splitCaptionPopping, plan(split, "", "Hello สวัสดีครับ"), moving)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, wholeCaption, plan(whole, "", "Hello สวัสดีครับ"), still)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, flash, plan(split, "flash", ""), moving)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, blur, plan(split, "blur", ""), moving)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, whip, plan(split, "whip", ""), moving)->Unit(benchmark::kMillisecond);

const bool stock = [] {
    for (const Book& book : Stock::books())
        benchmark::RegisterBenchmark((book.id() + "/drawn").c_str(), [&book](benchmark::State& state) {
            draw(state, with(book), still);
        })->Unit(benchmark::kMillisecond);
    return true;
}();

}
}
