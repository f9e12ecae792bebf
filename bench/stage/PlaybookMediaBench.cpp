#include "core/render/footage/Footage.h"
#include "core/render/stage/ChromaKey.h"
#include "core/render/stage/Glyph.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/base/Files.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Canvas.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/PictureFile.h"
#include "platform/vision/SubjectMask.h"
#include "tests/TemporaryFolder.h"

#include <benchmark/benchmark.h>

extern "C" {
#include <libswscale/swscale.h>
}

using namespace murbo;

namespace {

/// Twelve million pixels with as much in them as a photo has, as a phone writes them.
const std::filesystem::path& photo() {
    static const TemporaryFolder folder;
    static const auto path = [] {
        Bitmap bitmap(4032, 3024);
        std::uint32_t noise = 1;
        for (int y = 0; y < bitmap.height(); ++y)
            for (int x = 0; x < bitmap.width() * 4; ++x) {
                noise = noise * 1664525 + 1013904223;
                const int wave = int(60 * std::sin(x * 0.01) + 60 * std::cos(y * 0.03 + x * 0.002));
                bitmap.row(y)[x] =
                    std::uint8_t(x % 4 == 3 ? 255 : 128 + wave / (1 + x % 4) + int(noise >> 29));
            }
        return folder.file("photo.jpg", Jpeg::encode(bitmap, 0.89));
    }();
    return path;
}

}

/// The yardsticks: the library's own decoding alone, and with what brings it to the pixels that we keep.
static void decodedByTheLibrary(benchmark::State& state, bool converted) {
    ffmpeg::quiet();
    std::string bytes = Files::readWhole(photo(), 1 << 28);
    const auto size = int(bytes.size());
    bytes.append(AV_INPUT_BUFFER_PADDING_SIZE, '\0');
    for (auto _ : state) {
        const AVCodec* decoder = avcodec_find_decoder(AV_CODEC_ID_MJPEG);
        const ffmpeg::CodecContext codec(avcodec_alloc_context3(decoder));
        codec->thread_count = 1;
        avcodec_open2(codec.get(), decoder, nullptr);
        const auto packet = ffmpeg::makePacket();
        const auto picture = ffmpeg::makePicture();
        packet->data = reinterpret_cast<std::uint8_t*>(bytes.data());
        packet->size = size;
        avcodec_send_packet(codec.get(), packet.get());
        if (avcodec_receive_frame(codec.get(), picture.get()) < 0) state.SkipWithError("not decoded");
        if (!converted) continue;
        const Bitmap kept(3326, 2494);
        SwsContext* scaler =
            sws_getContext(picture->width, picture->height, AVPixelFormat(picture->format), kept.width(),
                           kept.height(), AV_PIX_FMT_BGRA, SWS_AREA, nullptr, nullptr, nullptr);
        std::uint8_t* rows[] = {const_cast<std::uint8_t*>(kept.row(0))};
        const int strides[] = {int(kept.stride())};
        sws_scale(scaler, picture->data, picture->linesize, 0, picture->height, rows, strides);
        sws_freeContext(scaler);
    }
}
BENCHMARK_CAPTURE(decodedByTheLibrary, alone, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodedByTheLibrary, scaledByIt, true)->Unit(benchmark::kMillisecond);

static void photoRead(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(PictureFile::read(photo(), 3840.0 * 2160));
}
BENCHMARK(photoRead)->Unit(benchmark::kMillisecond);

static void photoKept(benchmark::State& state) {
    PlaybookMedia media;
    media.image(photo());
    for (auto _ : state) benchmark::DoNotOptimize(media.image(photo()));
}
BENCHMARK(photoKept)->Unit(benchmark::kMicrosecond);

/// The photo on a frame, at a share of the frame's width.
static void photoDrawn(benchmark::State& state) {
    PlaybookMedia media;
    const Image image = *media.image(photo());
    const double scale = double(state.range(0)) / 100 * 1080 / image.extent().width;
    Bitmap target(1080, 1920);
    for (auto _ : state) Canvas::draw(image.transformed(Transform().scaled(scale, scale)), target);
}
BENCHMARK(photoDrawn)->Arg(10)->Arg(30)->Arg(100)->Unit(benchmark::kMillisecond);

static void newLetters(benchmark::State& state) {
    PlaybookMedia media;
    CaptionStyle style;
    style.size = 120;
    style.outline = "000000";
    int number = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            media.text("Level " + std::to_string(++number) + " done! 🔥", style, "", 1, 928.8));
}
BENCHMARK(newLetters)->Unit(benchmark::kMillisecond);

static void keptLetters(benchmark::State& state) {
    PlaybookMedia media;
    for (auto _ : state) benchmark::DoNotOptimize(media.text("Level 1 done! 🔥", {}, "", 1, 928.8));
}
BENCHMARK(keptLetters)->Unit(benchmark::kMicrosecond);

static void newGlyph(benchmark::State& state, const char* glyph) {
    double points = 160;
    for (auto _ : state) benchmark::DoNotOptimize(Glyph::draw(glyph, points += 0.01));
}
BENCHMARK_CAPTURE(newGlyph, emoji, "🔥")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(newGlyph, letter, "Z")->Unit(benchmark::kMillisecond);

static void keptGlyph(benchmark::State& state) {
    PlaybookMedia media;
    for (auto _ : state) benchmark::DoNotOptimize(media.glyph("🔥", 160));
}
BENCHMARK(keptGlyph)->Unit(benchmark::kMicrosecond);

/// A moving person cut out, drawn on a frame; `again` shows one picture over and over.
static void cutOut(benchmark::State& state, bool cut, bool again) {
    const std::filesystem::path file = std::filesystem::path(MURBO_FOOTAGE) / "actors-battle.webm";
    if (!std::filesystem::exists(file)) return state.SkipWithError("the footage of people is not here");
    if (!SubjectMask::available()) return state.SkipWithError("the weights are not here");
    std::vector<Image> frames;
    Footage footage(file);
    for (int frame = 0; frame < 30; ++frame) frames.push_back(*footage.frame(14 + frame / 30.0));
    auto media = std::make_unique<PlaybookMedia>();
    Bitmap target(1080, 1920);
    std::size_t next = 0;
    for (auto _ : state) {
        if (next % frames.size() == 0 && !again) {
            state.PauseTiming();
            media = std::make_unique<PlaybookMedia>();
            state.ResumeTiming();
        }
        const Image& frame = frames[again ? 0 : next++ % frames.size()];
        const double scale = 1920 / frame.extent().height;
        const Image shown = cut ? media->cutout(frame) : frame;
        Canvas::draw(shown.transformed(Transform().scaled(scale, scale)), target);
    }
}
BENCHMARK_CAPTURE(cutOut, without, false, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cutOut, newPictures, true, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cutOut, onePicture, true, true)->Unit(benchmark::kMillisecond);

static void newColourKey(benchmark::State& state) {
    std::uint8_t green = 0;
    for (auto _ : state) benchmark::DoNotOptimize(ChromaKey::cube({0, ++green, 0, 255}));
}
BENCHMARK(newColourKey)->Unit(benchmark::kMillisecond);
