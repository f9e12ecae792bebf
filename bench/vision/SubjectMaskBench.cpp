// One mask, in thread CPU time, beside the plainest way of running the network's heaviest layer and a copy of
// a frame.

#include "platform/image/draw/Canvas.h"
#include "platform/media/FrameReader.h"
#include "platform/vision/NetworkKernels.h"
#include "platform/vision/SubjectMask.h"

#include <cstring>
#include <filesystem>
#include <vector>

#include <benchmark/benchmark.h>

using namespace murbo;

namespace {

/// A person before a wall, in a picture of that size.
Bitmap picture(int width, int height) {
    const std::filesystem::path file = MURBO_FOOTAGE "/talk-seven-people.mp4";
    const Image image = std::filesystem::exists(file)
                            ? Image::frame(FrameReader::open(file).at(1)->frame)
                            : Image::gradient({0, 0, 360, 288}, Colour{}, Colour{1, 1, 1, 1});
    const Rect extent = image.extent();
    return Canvas::bitmap(
        image.clamped().transformed(Transform().scaled(width / extent.width, height / extent.height)),
        {0, 0, double(width), double(height)});
}

void mask(benchmark::State& state) {
    if (!SubjectMask::available()) return state.SkipWithError("the weights are not installed");
    const Bitmap given = picture(int(state.range(0)), int(state.range(1)));
    benchmark::DoNotOptimize(SubjectMask::of(given)); // reads the weights
    for (auto _ : state) benchmark::DoNotOptimize(SubjectMask::of(given));
    // Per second of CPU: cut-outs beside a video that plays ask for 15.
    state.SetItemsProcessed(state.iterations());
}

void copyOfAFrame(benchmark::State& state) {
    std::vector<char> from(1080 * 1920 * 4), to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
}

// A mix of 16 channels into 72 for 64 by 64 pixels.
constexpr int pixels = 64 * 64, inputs = 16, outputs = 72;
struct Mix {
    std::vector<float> input = std::vector<float>(pixels * inputs, 0.5f);
    std::vector<float> weights = std::vector<float>(inputs * outputs, 0.25f);
    std::vector<float> bias = std::vector<float>(outputs, 1);
    std::vector<float> output = std::vector<float>(pixels * outputs);
};

void layer(benchmark::State& state) {
    Mix mix;
    NetworkKernels::ConvolutionWindow window;
    window.channels = window.pixelStep = inputs;
    window.outputs = outputs;
    window.weights = mix.weights.data();
    window.bias = mix.bias.data();
    for (auto _ : state) {
        NetworkKernels::convolve(window, mix.input.data(), pixels, mix.output.data());
        benchmark::ClobberMemory();
    }
}

void layerByPlainLoops(benchmark::State& state) {
    Mix mix;
    for (auto _ : state) {
        for (int pixel = 0; pixel < pixels; ++pixel)
            for (int to = 0; to < outputs; ++to) {
                float sum = mix.bias[std::size_t(to)];
                for (int from = 0; from < inputs; ++from)
                    sum += mix.input[std::size_t(pixel * inputs + from)] *
                           mix.weights[std::size_t(to * inputs + from)];
                mix.output[std::size_t(pixel * outputs + to)] = sum;
            }
        benchmark::ClobberMemory();
    }
}

}

BENCHMARK(mask)->Args({288, 512})->Args({512, 288})->Args({512, 512})->Unit(benchmark::kMillisecond);
BENCHMARK(copyOfAFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(layer)->Unit(benchmark::kMillisecond);
BENCHMARK(layerByPlainLoops)->Unit(benchmark::kMillisecond);
