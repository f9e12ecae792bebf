#include "platform/image/draw/Flattening.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

using Node = ImageNode;

/// Whether a filter can be drawn as it is placed: each works upright on the pixels of some grid, its lengths
/// scaled to them.
bool fits(const Filter& filter, const Transform& place) {
    return filter.byPixel() || (place.b == 0 && place.c == 0 && place.a > 0 && place.d > 0);
}

/// From the canvas to a grid along the picture's axes. Where but a quarter turn or a mirror leads there,
/// pixels stay pixels, so that nothing is smoothed.
Transform uprightWay(const Transform& place) {
    if (!place.keepsAxes())
        return place.inverse().then(
            Transform().scaled(std::hypot(place.a, place.b), std::hypot(place.c, place.d)));
    const auto sign = [](double value) { return double(value > 0) - double(value < 0); };
    const auto turn = Transform{sign(place.a), sign(place.b), sign(place.c), sign(place.d), 0, 0}.inverse();
    const auto origin = place.then(turn).apply(Point{});
    return turn.translated(-std::round(origin.x), -std::round(origin.y));
}

/// Draws a picture and changes its rows while a strip of them lies in a near cache.
DrawTile changed(DrawTile picture, std::vector<ChangeRow> rows) {
    return [picture = std::move(picture), rows = std::move(rows)](const Tile& tile) {
        tile.inStrips([&](const Tile& strip) {
            picture(strip);
            const auto& area = strip.area;
            for (const auto& change : rows) {
                for (int y = area.top; y < area.bottom; ++y)
                    change(area.left, y, area.width(), strip.at(area.left, y));
            }
        });
    };
}

}

/// All filters that follow one upon the other in place are done together; sums of a blur's colours on the
/// blur's own grid, where it has far fewer pixels. Nothing where the topmost does not work in place.
DrawTile Flattening::filteredInPlace(const Node::Filtered& topmost, const Transform& place,
                                     const PixelRect& bounds) const {
    std::vector<ChangeRow> rows;
    const Node* below = nullptr;
    const Node::Filtered* next = &topmost;
    bool sums = true;
    for (; next && fits(next->filter, place); next = std::get_if<Node::Filtered>(&below->kind)) {
        ChangeRow row = next->filter.row(place.apply(next->of->body), bounds);
        if (!row) break;
        sums = sums && next->filter.sumsColours();
        rows.push_back(std::move(row));
        below = next->of.get();
    }
    if (rows.empty()) return {};
    std::reverse(rows.begin(), rows.end());
    if (next && sums && fits(next->filter, place) && next->filter.drawsCoarsely(place))
        return next->filter.draw(sourceOf(*next->of), place, bounds, rows);
    return changed(sourceOf(*below).drawing(place, bounds), std::move(rows));
}

DrawTile Flattening::filtered(const Node::Filtered& node, const Transform& place,
                              const PixelRect& bounds) const {
    if (DrawTile inPlace = filteredInPlace(node, place, bounds)) return inPlace;
    return node.filter.draw(sourceOf(*node.of), place, bounds);
}

/// A picture that is turned or mirrored is filtered on a grid of its own, along its axes, and turned then.
void Flattening::addFilteredUpright(const Node::Filtered& node, FlatteningState& state) {
    const auto& place = state.place;
    const auto way = uprightWay(place);
    const auto toGrid = place.keepsAxes()
                            ? place.then(way)
                            : Transform().scaled(std::hypot(place.a, place.b), std::hypot(place.c, place.d));
    // A clear rim: the edges of what is turned grow smooth over it.
    const auto wanted = PixelRect::touching(way.apply(state.bounds.grown(1, 1).rect())).grown(2, 2);
    const auto area = PixelRect::touching(toGrid.apply(state.node->extent)).grown(2, 2).intersection(wanted);
    if (!Raster::holds(area)) return;
    Raster raster = Raster::of(area, state.node->covers(toGrid, area.rect()));
    filtered(node, toGrid, area)(raster.tile());
    addSeen(state, std::move(raster), way, area);
}

void Flattening::visit(const Node::Filtered& node, FlatteningState& state) {
    smooth(state);
    if (tooDeep()) return;
    if (!fits(node.filter, state.place)) return addFilteredUpright(node, state);
    add(state, state.node->covers(state.place, state.bounds.rect()),
        filtered(node, state.place, state.bounds));
}

}
