#include "platform/image/filters/Filters.h"

#include "platform/image/draw/Painter.h"
#include "platform/image/draw/Rasterised.h"
#include "platform/image/filters/FilterDrawings.h"

#include <algorithm>
#include <cmath>

namespace murbo::Filters {
namespace {

using Node = Image::Node;
using FilterDrawings::Row;

constexpr double longest = 4096;
constexpr int largestCube = 64;

template <typename... Each>
struct Cases : Each... {
    using Each::operator()...;
};
template <typename... Each>
Cases(Each...) -> Cases<Each...>;

bool allFinite(const ColourMatrix& matrix) {
    double sum = matrix.contrast + matrix.lift[0] + matrix.lift[1] + matrix.lift[2];
    for (const auto& row : matrix.rows) sum += row[0] + row[1] + row[2] + row[3];
    return std::isfinite(sum);
}

std::optional<Filter> heldMatrix(ColourMatrix matrix) {
    if (!allFinite(matrix)) return std::nullopt;
    for (auto& row : matrix.rows) {
        for (auto& share : row) share = std::clamp(share, -7.999, 7.999);
    }
    for (auto& lift : matrix.lift) lift = std::clamp(lift, -0.25, 0.25);
    matrix.contrast = std::clamp(matrix.contrast, -0.25, 0.25);
    return matrix;
}

std::optional<Filter> heldCube(const ColourCube& cube) {
    if (cube.side < 2 || cube.side > largestCube || !cube.values) return std::nullopt;
    const auto entries = std::size_t(cube.side) * cube.side * cube.side;
    return cube.values->size() == entries * 4 ? std::optional<Filter>(cube) : std::nullopt;
}

/// Whether a filter changes the pixels of its picture one by one, in place.
bool inPlace(const Filter& filter) {
    return byPixel(filter) || std::holds_alternative<Vignetted>(filter);
}

Row rowOf(const Node::Filtered& filtered, const Transform& place, const PixelRect& bounds) {
    using FilterDrawings::row;
    return std::visit(Cases{[&](const ColourMatrix& filter) { return row(filter); },
                            [&](const Posterised& filter) { return row(filter); },
                            [&](const ColourCube& filter) { return row(filter, filtered.table); },
                            [&](const Vignetted& filter) {
                                return row(filter, place.apply(filtered.of.node().body), bounds);
                            },
                            [](const auto&) { return Row(); }},
                      filtered.filter);
}

/// The blur that such a picture is, where it shows any.
const Blurred* blurOf(const Node::Filtered* filtered, const Transform& place) {
    const auto* blur = filtered ? std::get_if<Blurred>(&filtered->filter) : nullptr;
    return blur && fits(*blur, place) && FilterDrawings::blurs(*blur, place) ? blur : nullptr;
}

/// All filters that follow one upon the other in place are done while a strip lies in a near cache; sums of a
/// blur's colours on the blur's own grid, where it has far fewer pixels.
Layer::Draw inPlace(const Node::Filtered& topmost, const Transform& place, const PixelRect& bounds,
                    int depth) {
    std::vector<Row> rows;
    const Node* below = nullptr;
    const Node::Filtered* filtered = &topmost;
    bool sums = true;
    for (; filtered; filtered = std::get_if<Node::Filtered>(&below->kind)) {
        if (!inPlace(filtered->filter) || !fits(filtered->filter, place)) break;
        sums = sums && std::holds_alternative<ColourMatrix>(filtered->filter);
        rows.push_back(rowOf(*filtered, place, bounds));
        below = &filtered->of.node();
    }
    std::reverse(rows.begin(), rows.end());
    const auto* blur = blurOf(filtered, place);
    if (blur && sums) return FilterDrawings::draw(*blur, filtered->of.node(), place, bounds, depth, rows);
    auto layers = std::make_shared<Layers>(layersOf(*below, place, bounds, depth));
    return [layers, rows](const Tile& tile) {
        FilterDrawings::inStrips(tile, [&](const Tile& strip) {
            Painter::paint(*layers, strip);
            const auto& area = strip.area;
            for (const auto& row : rows) {
                for (int y = area.top; y < area.bottom; ++y)
                    row(area.left, y, area.width(), strip.at(area.left, y));
            }
        });
    };
}

}

std::optional<Filter> held(const Filter& filter, const Rect& body) {
    using Held = std::optional<Filter>;
    const bool bounded = !body.isEverything();
    return std::visit(
        Cases{[](const ColourMatrix& given) { return heldMatrix(given); },
              [](const ColourCube& given) { return heldCube(given); },
              [](const Posterised& given) {
                  return given.levels < 256 ? Held(Posterised{std::max(given.levels, 2)}) : Held();
              },
              [&](const Blurred& given) {
                  return given.sigma > 0 && bounded ? Held(Blurred{std::min(given.sigma, longest)}) : Held();
              },
              [&](const Bloomed& given) {
                  if (!(given.radius > 0) || !(given.intensity > 0) || !bounded) return Held();
                  return Held(Bloomed{std::min(given.radius, longest), std::min(given.intensity, 1.0)});
              },
              [&](const Pixellated& given) {
                  if (!(given.size > 1) || !bounded) return Held();
                  if (!std::isfinite(given.middle.x) || !std::isfinite(given.middle.y)) return Held();
                  // Which of the cells' middles is told makes no difference.
                  const double size = std::min(given.size, longest);
                  return Held(Pixellated{size,
                                         {std::remainder(given.middle.x - body.x, size) + body.x,
                                          std::remainder(given.middle.y - body.y, size) + body.y}});
              },
              [&](const Vignetted& given) {
                  if (!(given.intensity > 0) || !(given.radius > 0) || !bounded) return Held();
                  return Held(Vignetted{std::min(given.intensity, 16.0), std::min(given.radius, 64.0)});
              },
              [](const Inked& given) { return Held(given); },
              [](const Taped& given) {
                  if (!std::isfinite(given.bleed) || !std::isfinite(given.lines)) return Held();
                  return Held(Taped{std::clamp(given.bleed, 0.0, 256.0),
                                    std::remainder(given.lines, FilterDrawings::linePeriod), given.noise});
              }},
        filter);
}

double reach(const Filter& filter) {
    return std::visit(
        Cases{[](const Blurred& blur) { return blur.sigma * 3; },
              [](const Bloomed& bloom) { return bloom.radius * 3 * FilterDrawings::wideGlow; },
              [](const Pixellated& cells) { return cells.size; }, [](const auto&) { return 0.0; }},
        filter);
}

bool byPixel(const Filter& filter) {
    return std::holds_alternative<ColourMatrix>(filter) || std::holds_alternative<ColourCube>(filter) ||
           std::holds_alternative<Posterised>(filter);
}

bool fits(const Filter& filter, const Transform& place) {
    return byPixel(filter) || (place.b == 0 && place.c == 0 && place.a > 0 && place.d > 0);
}

Layer::Draw drawing(const Node::Filtered& filtered, const Transform& place, const PixelRect& bounds,
                    int depth) {
    if (inPlace(filtered.filter)) return inPlace(filtered, place, bounds, depth);
    return std::visit(
        [&](const auto& filter) -> Layer::Draw {
            if constexpr (requires {
                              FilterDrawings::draw(filter, filtered.of.node(), place, bounds, depth);
                          })
                return FilterDrawings::draw(filter, filtered.of.node(), place, bounds, depth);
            return FilterDrawings::nothing();
        },
        filtered.filter);
}

namespace {

/// From the canvas to a grid along the picture's axes. Where but a quarter turn or a mirror leads there,
/// pixels stay pixels, so that nothing is smoothed.
Transform uprightWay(const Transform& place) {
    if (!keepsAxes(place))
        return place.inverse().then(
            Transform().scaled(std::hypot(place.a, place.b), std::hypot(place.c, place.d)));
    const auto sign = [](double value) { return double(value > 0) - double(value < 0); };
    const auto turn = Transform{sign(place.a), sign(place.b), sign(place.c), sign(place.d), 0, 0}.inverse();
    const auto origin = place.then(turn).apply(Point{});
    return turn.translated(-std::round(origin.x), -std::round(origin.y));
}

}

Placed upright(const Node& node, const Node::Filtered& filtered, const Transform& place,
               const PixelRect& bounds, int depth) {
    const auto way = uprightWay(place);
    const auto toGrid = keepsAxes(place)
                            ? place.then(way)
                            : Transform().scaled(std::hypot(place.a, place.b), std::hypot(place.c, place.d));
    // A clear rim: the edges of what is turned grow smooth over it.
    const auto wanted = PixelRect::touching(way.apply(bounds.grown(1, 1).rect())).grown(2, 2);
    const auto area = PixelRect::touching(toGrid.apply(node.extent)).grown(2, 2).intersection(wanted);
    if (!Raster::holds(area)) return {};
    Raster raster = Raster::of(area, covers(node, toGrid, area));
    drawing(filtered, toGrid, area, depth)(raster.tile());
    return {std::move(raster), way};
}

}
