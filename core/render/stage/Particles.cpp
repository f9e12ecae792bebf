#include "core/render/stage/Particles.h"

#include "core/playbooks/Drift.h"
#include "platform/base/CommaList.h"
#include "platform/base/SeededRandom.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace murbo::Stage::Particles {
namespace {

constexpr std::int64_t maxParticles = 200;
constexpr std::int64_t usualParticles = 12;
/// Seeds that follow one another lie far apart.
constexpr std::uint64_t seedSpacing = 7919;
constexpr std::int64_t usualSeed = 7;
constexpr std::uint64_t particleSpacing = 104729;
constexpr std::uint64_t drawSpacing = 1299709;
/// Of a glyph that particles are made of.
constexpr double glyphPoints = 160;
/// What is fainter than this is faded; so near to opaque nobody sees it.
constexpr double opaqueEnough = 0.999;
constexpr double fullTurn = 2 * 3.14159265358979323846;

/// Numbers of one particle, from 0 to 1. Each has the same use in every drift.
class Chances {
public:
    Chances(std::uint64_t seed, std::uint64_t particle) : state(seed + particle * particleSpacing) {}
    double operator()(std::uint64_t number) const {
        return SeededRandom::unit(SeededRandom(state + number * drawSpacing).next());
    }

private:
    std::uint64_t state;
};

/// Where a particle is at some age.
struct ParticlePose {
    double x = 0;
    double y = 0;
    double rotation = 0; ///< degrees clockwise
    double opacity = 1;
};

/// What drifts depend on beside chance.
struct Flight {
    double width; ///< of the frame
    double height;
    Point origin; ///< of a burst
    double size;  ///< the particle's width
    double age;   ///< seconds since it set off
};

double spin(const Chances& r, double slowest, double range) {
    return (r(9) >= 0.5 ? 1 : -1) * (range * r(6) + slowest);
}

ParticlePose rise(const Chances& r, const Flight& flight) {
    const double x = flight.width * r(1) + 36 * std::sin(6 * r(5) + (1.5 * r(4) + 1.5) * flight.age);
    const double y = flight.height + flight.size - (0.25 * r(2) + 0.22) * flight.height * flight.age;
    const double rotation = 14 * std::sin(6 * r(6) + 2.2 * flight.age);
    return {x, y, rotation, std::clamp(y / (0.25 * flight.height), 0.0, 1.0)};
}

ParticlePose fall(const Chances& r, const Flight& flight) {
    const double x = flight.width * r(1) + 40 * std::sin(6 * r(5) + (2 * r(4) + 2) * flight.age);
    const double y = (0.3 * r(2) + 0.25) * flight.height * flight.age - flight.size;
    return {x, y, spin(r, 200, 300) * flight.age};
}

/// Thrown outward, and pulled down as it flies.
ParticlePose burst(const Chances& r, const Flight& flight) {
    const double thrown = flight.height * (0.65 * r(2) + 0.35) * flight.age;
    const double fallen = 0.65 * flight.height * flight.age * flight.age;
    const double way = fullTurn * r(1);
    return {flight.origin.x + std::cos(way) * thrown, flight.origin.y - std::sin(way) * thrown + fallen,
            spin(r, 300, 400) * flight.age};
}

ParticlePose hover(const Chances& r, const Flight& flight) {
    const double x = flight.width * r(1) + 30 * std::sin(6 * r(5) + (r(4) + 1) * flight.age);
    const double y = flight.height * (0.8 * r(2) + 0.1) + 30 * std::cos(6 * r(4) + (r(6) + 0.8) * flight.age);
    const double glimmer = 0.5 + 0.5 * std::sin(6 * r(8) + (3 * r(9) + 3) * flight.age);
    return {x, y, 20 * std::sin(6 * r(5) + 2 * flight.age), 0.35 + 0.65 * glimmer};
}

ParticlePose poseOf(Drift drift, const Chances& r, const Flight& flight) {
    switch (drift) {
        case Drift::rise:
            return rise(r, flight);
        case Drift::fall:
            return fall(r, flight);
        case Drift::burst:
            return burst(r, flight);
        case Drift::floating:
            return hover(r, flight);
    }
    return {};
}

Image confetti(const Chances& r, double size) {
    static constexpr std::array<Colour, 7> colours{{{0xFF, 0x3B, 0x30},
                                                    {0xFF, 0xCC, 0x00},
                                                    {0x34, 0xC7, 0x59},
                                                    {0x0A, 0x84, 0xFF},
                                                    {0xFF, 0x2D, 0x92},
                                                    {0xAF, 0x52, 0xDE},
                                                    {0xFF, 0xFF, 0xFF}}};
    const auto number = std::size_t(r(8) * colours.size()) % colours.size();
    return Image::colour(colours[number]).cropped({0, 0, size, size / 2});
}

/// What a comma-separated list names.
std::vector<std::string> listed(std::string_view text) {
    std::vector<std::string> names;
    for (const auto entry : CommaList::entries(text))
        if (auto name = Text::trimmedOfBlanks(entry); !name.empty()) names.push_back(std::move(name));
    return names;
}

/// The pictures of as many glyphs as there are particles to show them. Each is drawn once, at a size near to
/// that of the particles, and only placed by each of them. A glyph that no font has keeps its place.
std::vector<Image> glyphs(const std::vector<std::string>& names, std::int64_t count, const Context& context) {
    std::vector<Image> pictures(std::min(names.size(), std::size_t(count)));
    const auto drawn = context.take(&Budget::glyphs, std::int64_t(pictures.size()));
    for (std::size_t i = 0; i < std::size_t(drawn); ++i)
        pictures[i] = context.scene.media.glyph(names[i], glyphPoints).value_or(Image()).drawnOnce();
    return pictures;
}

/// The picture's middle goes to its place, as wide as the particle.
Image placed(const Image& picture, const ParticlePose& pose, double size) {
    const auto extent = picture.extent();
    const auto middle = extent.middle();
    const double scale = size / std::max(extent.width, 1.0);
    const auto way = Transform()
                         .translated(-middle.x, -middle.y)
                         .scaled(scale, scale)
                         .rotated(pose.rotation)
                         .translated(pose.x, pose.y);
    const Image moved = picture.transformed(way);
    return pose.opacity < opaqueEnough ? moved.faded(pose.opacity) : moved;
}

}

Image scatter(const std::string& text, const Context& context, double width) {
    const auto& layer = context.layer;
    const bool coloured = text == "confetti";
    const auto wanted = std::clamp<std::int64_t>(layer.count.value_or(usualParticles), 1, maxParticles);
    const auto count = context.take(&Budget::particles, wanted);
    // No more than there are particles, so that each particle's number still leads to its own glyph.
    const auto pictures = coloured ? std::vector<Image>() : glyphs(listed(text), count, context);
    if (!coloured && pictures.empty()) return {};
    const auto seed = std::uint64_t(layer.seed.value_or(usualSeed)) * seedSpacing;
    const auto drift = fromRawText<Drift>(context.text(layer.drift).value_or("")).value_or(Drift::rise);
    const Point origin{context.width() * context.number(layer.x).value_or(0.5),
                       context.height() * context.number(layer.y).value_or(0.5)};
    Image all;
    for (std::int64_t i = 0; i < count; ++i) {
        const Chances r(seed, std::uint64_t(i));
        const double size = width * (r(7) * 0.8 + 0.6);
        const double age = context.held - r(3) * std::min(context.life * 0.4, 1.2);
        if (age < 0) continue; // it sets off later
        const Image picture = coloured ? confetti(r, size) : pictures[std::size_t(i) % pictures.size()];
        const Flight flight{context.width(), context.height(), origin, size, age};
        const Image particle = placed(picture, poseOf(drift, r, flight), size);
        if (!context.takeArea(particle.extent(), true)) break;
        all = particle.over(all);
    }
    return all;
}

}
