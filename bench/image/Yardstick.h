#pragma once

#include <string>

#include <benchmark/benchmark.h>

namespace murbo {

/// A filter graph of the library that the ffmpeg program runs, on one thread: `inputs` pictures of 1080x1920
/// pixels in planes of green, blue, red and alpha go in, one comes out.
void filteredByLibrary(benchmark::State& state, const std::string& graph, int inputs);

}
