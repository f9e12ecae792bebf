// What models are told of ten hours of footage, and what is read out of a reply of a megabyte.
#include "bench/model/BigProject.h"
#include "core/ai/CutToInstruction.h"
#include "core/ai/DescribeClips.h"
#include "core/ai/Reply.h"
#include "core/ai/StillThere.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

using namespace murbo;

namespace {

std::vector<UUID> clips() {
    std::vector<UUID> ids;
    for (const auto& clip : bigProject().clips) ids.push_back(clip.id);
    return ids;
}

Reading opening() {
    return CutToInstruction::reading("the best fall", clips(), {}, Video::Aspect::vertical, bigProject());
}

/// Under 50 ms: the whole project with its tags, and the first request.
void openAConversation(benchmark::State& state) {
    std::size_t bytes = 0;
    for (auto _ : state) bytes = opening().ask().text().size();
    state.counters["bytes"] = static_cast<double>(bytes);
}

void askForTwentyClips(benchmark::State& state) {
    const auto& project = bigProject();
    Brief::Clips first;
    for (std::size_t at = 0; at < 20; ++at) first.push_back(&project.clips[at]);
    for (auto _ : state) {
        const Said said(project);
        benchmark::DoNotOptimize(DescribeClips::ask(first, project, said));
    }
}

/// A reply that names cuts of every clip, a megabyte long.
std::string reply(const Reading& loop) {
    std::string text = "{\"title\": \"All\", \"cuts\": [";
    for (std::size_t at = 0; text.size() < 1'000'000; ++at) {
        const auto& piece = loop.said().all()[at % loop.said().all().size()];
        text += fmt::format(R"({}{{"from": "{}", "to": "{}", "role": "payoff"}})", at ? ", " : "", piece.tag,
                            piece.tag);
    }
    return text + "]}";
}

/// Under 20 ms.
void readAMegabyte(benchmark::State& state) {
    const auto loop = opening();
    const auto text = reply(loop);
    for (auto _ : state) {
        const auto object = Reply::object(text);
        const auto answer = CutToInstruction::answer(object, loop);
        benchmark::DoNotOptimize(answer);
    }
}

/// The same with nothing made of it: what the JSON alone costs.
void yardstickParseAMegabyte(benchmark::State& state) {
    const auto text = reply(opening());
    for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(text));
}

BENCHMARK(openAConversation)->Unit(benchmark::kMillisecond);
BENCHMARK(askForTwentyClips)->Unit(benchmark::kMillisecond);
BENCHMARK(readAMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK(yardstickParseAMegabyte)->Unit(benchmark::kMillisecond);

}
