#include "core/render/plan/PlaybookClock.h"
#include "core/render/stage/Stage.h"
#include "platform/image/draw/Canvas.h"
#include "tests/SameBitmaps.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

constexpr int width = 108;
constexpr int height = 192;

/// Something to look at: another colour everywhere.
Image coloured(int wide, int high) {
    Bitmap bitmap(wide, high);
    for (int y = 0; y < high; ++y)
        for (int x = 0; x < wide; ++x) {
            const std::array<int, 4> pixel{x * 255 / wide, y * 255 / high, (x ^ y) & 255, 255};
            std::copy(pixel.begin(), pixel.end(), bitmap.row(y) + x * 4);
        }
    return Image::bitmap(std::move(bitmap));
}

/// Placed longer than it is, so that its middle runs on; `stretched` draws it slower instead.
PlacedOverlay placed(Playbook playbook, bool stretched) {
    PlacedOverlay result;
    result.start = 1;
    result.end = 1 + std::min(playbook.naturalLength(), 1e6) * 1.5;
    result.overlay.stretch = stretched;
    Book book{std::move(playbook), std::nullopt};
    result.values = book.values(std::nullopt);
    result.book = std::move(book);
    result.zoom = 1.3;
    result.focus = 0.4;
    return result;
}

Bitmap drawn(const PlacedOverlay& overlay, double time, const Stage::Scene& scene) {
    Bitmap bitmap(width, height);
    Canvas::draw(Stage::draw(overlay, time, scene, scene.below), bitmap);
    return bitmap;
}

/// The frames of a playbook, and again from the last to the first: they must be the same.
void play(const PlacedOverlay& overlay) {
    static PlaybookMedia media;
    static const Image below = coloured(width, height);
    static const Image source = coloured(160, 90);
    Plan plan;
    plan.frame = {width, height};
    Framing framing;
    framing.eyes = Spot{0.8, 0.6};
    const Stage::Scene scene{below, source, framing, plan, media};
    const double length = overlay.end - overlay.start;
    const std::array times{overlay.start + 0.1, overlay.start + length * 0.6, overlay.end - 0.05};
    std::vector<Bitmap> forward;
    for (const double time : times) forward.push_back(drawn(overlay, time, scene));
    for (std::size_t frame = times.size(); frame-- > 0;)
        require(same(drawn(overlay, times[frame], scene), forward[frame]), "drawn again, a frame differs");
    for (const auto& layer : overlay.playbook().layers) Stage::layerStart(overlay, layer);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    try {
        play(placed(Playbook::decode({reinterpret_cast<const char*>(bytes), size}), size % 2 == 0));
    } catch (const Problem&) { // no playbook
    }
    return 0;
}
