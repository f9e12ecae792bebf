// Frames that somebody has overfilled: none may take longer than a second. Each is drawn anew, with nothing
// kept from the one before, as the first frame of an export is.

#include "core/render/Renderer.h"
#include "platform/base/Files.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Canvas.h"
#include "tests/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

namespace murbo {
namespace {

Playbook playbook(const std::string& layer, int count) {
    auto result = Playbook::decode(R"({"name": "Full", "layers": [)" + layer + "]}");
    const auto first = result.layers;
    for (int more = 1; more < count; ++more)
        result.layers.insert(result.layers.end(), first.begin(), first.end());
    return result;
}

/// A playbook placed so often, all of them on at once.
Plan full(const Playbook& playbook, int placements) {
    Plan plan;
    plan.frame = {1080, 1920};
    plan.shots.push_back({0, 10, {}, false});
    const Book book{playbook, std::nullopt};
    const Shared<Book> shared(book);
    for (int at = 0; at < placements; ++at)
        plan.overlays.push_back({.start = 0, .end = 10, .book = shared, .values = book.values({})});
    return plan;
}

void draw(benchmark::State& state, const Plan& plan) {
    const auto picture = Image::gradient({0, 0, 1920, 1080}, {10, 20, 200}, {200, 180, 10});
    Planes target(1080, 1920);
    for (auto _ : state) {
        CaptionCache captions;
        PlaybookMedia media;
        Canvas::draw(Renderer::render(picture, {}, plan, 1.234, captions, media), target);
        benchmark::DoNotOptimize(target.plane(0)[0]);
    }
    state.counters["allowed_ms"] = 1000;
}

void layers(benchmark::State& state, const std::string& layer, int count, int placements) {
    draw(state, full(playbook(layer, count), placements));
}

const std::string halfClear = R"({"shape": "rect", "fill": true, "color": "FF8800", "opacity": 0.5})";
const std::string turned =
    R"({"shape": "round", "w": 1, "h": 1, "rotation": 7, "color": "0088FF", "opacity": 0.5, "blend": "soft"})";
const std::string costly =
    R"({"slot": "under", "opacity": 0.5, "effects": ["comic", "vhs", "blur", "glow", "zoom-blur", "pixel"]})";
const std::string ownEffects =
    R"({"shape": "circle", "w": 0.9, "gradient": "00FF00", "opacity": 0.5, "effects": ["glow", "comic", "zoom-blur"]})";
const std::string cheapEffects =
    R"({"slot": "under", "opacity": 0.5, "effects": ["mono", "sepia", "vignette", "posterize", "saturate"]})";
const std::string letters = [] {
    std::string text;
    for (int at = 0; at < 1500; ++at) text += at % 7 == 6 ? ' ' : char('a' + at % 26);
    return R"({"text": ")" + text + R"(", "size": 60, "opacity": 0.7})";
}();

BENCHMARK_CAPTURE(layers, halfClear, halfClear, 500, 4)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(layers, turnedAndBlended, turned, 500, 4)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(layers, costlyEffects, costly, 500, 20)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(layers, effectsOfTheirOwn, ownEffects, 500, 20)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(layers, cheapEffects, cheapEffects, 500, 20)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(
    layers, particles,
    std::string(R"({"particles": "😂,🔥,❤️", "count": 200, "w": 0.5, "drift": "float"})"), 500, 4)
    ->Unit(benchmark::kMillisecond);

/// Every layer has letters of its own.
void texts(benchmark::State& state) {
    auto many = playbook(letters, 150);
    for (std::size_t at = 0; at < many.layers.size(); ++at)
        many.layers[at].text = std::to_string(at) + *many.layers[at].text;
    draw(state, full(many, 1));
}
BENCHMARK(texts)->Unit(benchmark::kMillisecond);

/// Every layer has a file of its own, and all are the same large picture.
void links(benchmark::State& state) {
    const TemporaryFolder folder;
    Bitmap bitmap(3840, 2160);
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width() * 4; ++x)
            bitmap.row(y)[x] = std::uint8_t(x % 4 == 3 ? 255 : x * y);
    const auto file = folder.file("picture.jpg", Jpeg::encode(bitmap, 0.9));
    auto many = playbook(R"({"image": "x", "w": 0.5})", 80);
    for (std::size_t at = 0; at < many.layers.size(); ++at) {
        const auto link = folder / fmt::format("{}.jpg", at);
        if (state.range(0) == 0)
            std::filesystem::create_symlink(file, link);
        else
            std::filesystem::copy_file(file, link);
        many.layers[at].image = link.string();
    }
    draw(state, full(many, 1));
}
BENCHMARK(links)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(links)->ArgName("copies")->Arg(1)->Unit(benchmark::kMillisecond);

void keys(benchmark::State& state) {
    auto many = playbook(R"({"shape": "rect", "w": 0.1})", 1);
    many.layers[0].keys.emplace();
    for (int at = 0; at < 480'000; ++at) many.layers[0].keys->push_back({.t = at * 1e-5, .x = at % 7 * 0.1});
    draw(state, full(many, 20));
}
BENCHMARK(keys)->Unit(benchmark::kMillisecond);

}
}
