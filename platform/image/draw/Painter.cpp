#include "platform/image/draw/Painter.h"

#include "platform/image/PixelMemory.h"
#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cstring>

namespace murbo::Painter {
namespace {

/// What is smaller is not worth cutting the area round it into pieces; this also bounds how many there can
/// be.
constexpr std::int64_t worthCutting = 4096;
/// Pixels that are drawn by themselves before they are laid over others: few enough for a near cache.
constexpr int scratchPixels = 1 << 16;
/// Rows of a picture at an angle that are drawn together, each as wide as the widest.
constexpr int slantedRows = 4;

void clear(const Tile& tile) {
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        Kernels::fill(0, tile.area.width(), tile.at(tile.area.left, y));
}

void copy(const Raster& raster, const Tile& tile) {
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        std::memcpy(tile.at(tile.area.left, y), raster.at(tile.area.left, y),
                    std::size_t(tile.area.width()) * 4);
}

/// The layer's own pixels, without its edges and opacity.
void draw(Layer& layer, const Tile& tile) {
    if (auto* draw = std::get_if<DrawTile>(&layer.content)) return (*draw)(tile);
    if (auto* onGrid = std::get_if<Layer::OnGrid>(&layer.content)) return copy(onGrid->raster, tile);
    const auto pixel = std::get<Layer::Flat>(layer.content).pixel;
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        Kernels::fill(pixel, tile.area.width(), tile.at(tile.area.left, y));
}

/// How pixels are laid over others.
auto mixing(Blend blend) -> void (*)(const std::uint8_t*, int, std::uint8_t*) {
    switch (blend) {
        case Blend::multiply:
            return Kernels::multiply;
        case Blend::screen:
            return Kernels::screen;
        case Blend::overlay:
            return Kernels::overlay;
        case Blend::add:
            return Kernels::add;
        case Blend::softLight:
            return Kernels::softLight;
        case Blend::normal:
            break;
    }
    return Kernels::over;
}

/// Lays what needs no pixels of its own right over the tile.
bool laidDirectly(Layer& layer, const Tile& tile) {
    if (layer.opacity != 255 || !layer.edges.empty() || !layer.masks.empty()) return false;
    auto* onGrid = std::get_if<Layer::OnGrid>(&layer.content);
    const bool flat = std::holds_alternative<Layer::Flat>(layer.content) && layer.blend == Blend::normal;
    if (!onGrid && !flat) return false;
    const auto mix = mixing(layer.blend);
    for (int y = tile.area.top; y < tile.area.bottom; ++y) {
        auto* pixels = tile.at(tile.area.left, y);
        if (onGrid)
            mix(onGrid->raster.at(tile.area.left, y), tile.area.width(), pixels);
        else
            Kernels::over(std::get<Layer::Flat>(layer.content).pixel, tile.area.width(), pixels);
    }
    return true;
}

/// Fades what is drawn by the alpha of another picture.
void maskBy(Layers& mask, const Tile& tile) {
    const std::ptrdiff_t stride = std::ptrdiff_t(tile.area.width()) * 4;
    const auto memory = PixelMemory::take(std::size_t(stride * tile.area.height()));
    const Tile shape{memory.get(), stride, tile.area};
    paint(mask, shape);
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        Kernels::mask(shape.at(tile.area.left, y), tile.area.width(), tile.at(tile.area.left, y));
}

/// What of an area the layer's edges leave.
PixelRect reached(const Layer& layer, PixelRect area) {
    for (const auto& edges : layer.edges) {
        if (edges.slanted() && !area.empty()) area = edges.reached(area);
    }
    return area;
}

bool slanted(const Layer& layer) {
    return std::any_of(layer.edges.begin(), layer.edges.end(),
                       [](const Edges& each) { return each.slanted(); });
}

/// Draws the layer by itself, fades it, and lays it over the tile.
void layThroughScratch(Layer& layer, const Tile& tile) {
    const auto& area = tile.area;
    const int max = slanted(layer) ? slantedRows : scratchPixels / area.width();
    const int rows = std::clamp(max, 1, area.height());
    const std::ptrdiff_t stride = std::ptrdiff_t(area.width()) * 4;
    const auto memory = PixelMemory::take(std::size_t(stride * rows));
    const auto mix = mixing(layer.blend);
    for (int top = area.top; top < area.bottom; top += rows) {
        const auto part = reached(layer, {area.left, top, area.right, std::min(top + rows, area.bottom)});
        if (part.empty()) continue;
        const Tile scratch{memory.get(), stride, part};
        draw(layer, scratch);
        for (const auto& shape : layer.masks) maskBy(*shape, scratch);
        for (int y = part.top; y < part.bottom; ++y) {
            auto* row = scratch.at(part.left, y);
            for (const auto& edges : layer.edges) edges.cover(y, part.left, part.right, row);
            if (layer.opacity != 255) Kernels::fade(layer.opacity, part.width(), row);
            mix(row, part.width(), tile.at(part.left, y));
        }
    }
}

void lay(Layer& layer, const Tile& target, const PixelRect& rect) {
    const auto area = layer.bounds.intersection(rect);
    if (area.empty()) return;
    const auto solid = layer.solid.intersection(area);
    if (!solid.empty()) draw(layer, target.part(solid));
    around(area, solid, [&](const PixelRect& part) {
        if (!laidDirectly(layer, target.part(part))) layThroughScratch(layer, target.part(part));
    });
}

bool worthwhile(const PixelRect& solid, const PixelRect& rect) {
    return !solid.empty() && (solid == rect || solid.area() >= worthCutting);
}

/// Paints the lowest `count` layers in `rect`. Where the topmost solid one of them hides what lies below,
/// that is painted round it only.
void paintStack(Layers& layers, std::size_t count, const Tile& target, const PixelRect& rect) {
    std::size_t bottom = count;
    PixelRect solid;
    while (bottom > 0 && !worthwhile(solid, rect)) solid = layers[--bottom].solid.intersection(rect);
    const bool hides = worthwhile(solid, rect);
    if (!hides) clear(target.part(rect));
    if (hides && solid != rect)
        around(rect, solid, [&](const PixelRect& part) { paintStack(layers, bottom, target, part); });
    for (std::size_t at = bottom; at < count; ++at) lay(layers[at], target, rect);
}

}

void paint(Layers& layers, const Tile& tile) {
    const auto& area = tile.area;
    if (area.empty()) return;
    // What lies over each other is painted while it is onGrid in a near cache.
    const int rows = layers.size() > 1 ? std::max(scratchPixels / area.width(), 1) : area.height();
    for (int top = area.top; top < area.bottom; top += rows)
        paintStack(layers, layers.size(), tile,
                   {area.left, top, area.right, std::min(top + rows, area.bottom)});
}

}
