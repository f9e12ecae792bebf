#pragma once

#include "core/render/stage/Stage.h"
#include "platform/image/draw/Canvas.h"
#include "tests/SameBitmaps.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// A small stage: a frame of its own, a picture beneath, and footage where a test has some.
struct Staged {
    Plan plan;
    PlaybookMedia media;
    Framing framing;
    std::optional<Image> source;
    Image below;

    Staged(double width, double height, Colour beneath = Colour::black) {
        plan.frame = {width, height};
        below = box(width, height, beneath);
    }

    static Image box(double width, double height, Colour colour) {
        return Image::colour(colour).cropped({0, 0, width, height});
    }

    /// A playbook of those layers, in JSON, with a few parameters without values.
    static PlacedOverlay placed(const std::string& layers, double length = 3,
                                const std::string& timing = R"({"in": 0, "out": 0})") {
        constexpr const char* params = R"({"x": {"type": "number"}, "split": {"type": "number"},
            "file": {"type": "media"}, "none": {"type": "text"}})";
        PlacedOverlay result;
        result.end = length;
        result.book = Book{Playbook::decode(R"({"name": "Test", "length": 3, "timing": )" + timing +
                                            R"(, "params": )" + params + R"(, "layers": [)" + layers + "]}"),
                           std::nullopt};
        return result;
    }

    Image image(const PlacedOverlay& overlay, double time = 1) const {
        auto& shared = const_cast<PlaybookMedia&>(media);
        return Stage::draw(overlay, time, {below, source, framing, plan, shared}, below);
    }

    Bitmap drawn(const Image& image) const {
        return Canvas::bitmap(image, {0, 0, plan.frame.width, plan.frame.height});
    }
    Bitmap drawn(const PlacedOverlay& overlay, double time = 1) const { return drawn(image(overlay, time)); }
    Bitmap drawn(const std::string& layers, double time = 1) const { return drawn(placed(layers), time); }
};

/// A pixel as RRGGBB.
inline std::string at(const Bitmap& bitmap, int x, int y) {
    const auto* pixel = bitmap.row(y) + x * 4;
    char text[8];
    std::snprintf(text, sizeof text, "%02X%02X%02X", pixel[2], pixel[1], pixel[0]);
    return text;
}

inline constexpr const char* white = "FFFFFF";
inline constexpr const char* black = "000000";

/// Which of some pixels are white.
inline std::string seen(const Bitmap& bitmap, const std::vector<std::pair<int, int>>& places) {
    std::string result;
    for (const auto& [x, y] : places) result += at(bitmap, x, y) == white ? '#' : '.';
    return result;
}

/// A layer of a rectangle, in JSON.
inline std::string rect(const std::string& more) {
    return R"({"shape": "rect", "w": 0.5, "h": 0.25, )" + more + "}";
}

}
