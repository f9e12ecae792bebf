#include "core/render/captions/CaptionCache.h"
#include "core/render/captions/CaptionPicture.h"

#include <string>

#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

using namespace murbo;

namespace {

CaptionPicture::Request request(const std::string& text) {
    CaptionPicture::Request asked;
    asked.text = text;
    asked.style.outline = "000000";
    asked.style.stroke = 30;
    return asked;
}

const char* const latin = "this is what we came here to see";
const char* const mixed = "Hello WORLD สวัสดีครับ ภาษาไทย 日本語 😂🔥";

/// Another caption each time, as a video brings them: most letters have been seen before.
std::string another(int index) {
    static constexpr const char* words[] = {"this", "game", "never",  "lets", "you",
                                            "down", "ครับ",  "เล่นเกม", "wow",  "again"};
    std::string text;
    for (int word = 0; word < 5; ++word, index = index / 3 + index * 7 + 1)
        text += std::string(words[index % 10]) + " ";
    return text;
}

}

/// The yardstick: the same text wrapped, outlined and filled by pango_cairo alone.
static void plainPango(benchmark::State& state, const char* text, bool outlined) {
    for (auto _ : state) {
        cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1005, 300);
        cairo_t* cairo = cairo_create(surface);
        PangoLayout* layout = pango_cairo_create_layout(cairo);
        PangoFontDescription* font = pango_font_description_from_string("Noto Sans Bold");
        pango_font_description_set_absolute_size(font, 84 * PANGO_SCALE);
        pango_layout_set_font_description(layout, font);
        pango_layout_set_width(layout, 929 * PANGO_SCALE);
        pango_layout_set_alignment(layout, PANGO_ALIGN_CENTER);
        pango_layout_set_text(layout, text, -1);
        if (outlined) {
            pango_cairo_layout_path(cairo, layout);
            cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
            cairo_set_line_width(cairo, 25.2);
            cairo_stroke(cairo);
        }
        cairo_set_source_rgb(cairo, 1, 1, 1);
        pango_cairo_show_layout(cairo, layout);
        pango_font_description_free(font);
        g_object_unref(layout);
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }
}
BENCHMARK_CAPTURE(plainPango, latin, latin, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(plainPango, latinOutlined, latin, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(plainPango, mixed, mixed, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(plainPango, mixedOutlined, mixed, true)->Unit(benchmark::kMillisecond);

/// A caption whose letters are all known.
static void warm(benchmark::State& state, const char* text) {
    for (auto _ : state) benchmark::DoNotOptimize(CaptionPicture::bitmap(request(text)));
}
BENCHMARK_CAPTURE(warm, latin, latin)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(warm, mixed, mixed)->Unit(benchmark::kMillisecond);

/// At a size never drawn before: every letter anew.
static void cold(benchmark::State& state, const char* text) {
    static double scale = 1;
    for (auto _ : state) {
        auto asked = request(text);
        asked.scale = scale += 0.0001;
        benchmark::DoNotOptimize(CaptionPicture::bitmap(asked));
    }
}
BENCHMARK_CAPTURE(cold, latin, latin)->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK_CAPTURE(cold, mixed, mixed)->Unit(benchmark::kMillisecond)->Iterations(60);

static void videoOfCaptions(benchmark::State& state) {
    int index = 0;
    for (auto _ : state) benchmark::DoNotOptimize(CaptionPicture::bitmap(request(another(index++))));
}
BENCHMARK(videoOfCaptions)->Unit(benchmark::kMillisecond);

static void shadowed(benchmark::State& state) {
    auto asked = request(latin);
    asked.style.outline = "";
    asked.style.shadow = true;
    for (auto _ : state) benchmark::DoNotOptimize(CaptionPicture::bitmap(asked));
}
BENCHMARK(shadowed)->Unit(benchmark::kMillisecond);

static void keptPicture(benchmark::State& state) {
    CaptionCache cache;
    const auto asked = request(mixed);
    cache.picture(asked);
    for (auto _ : state) benchmark::DoNotOptimize(cache.picture(asked));
}
BENCHMARK(keptPicture)->Unit(benchmark::kMicrosecond);
