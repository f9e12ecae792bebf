#include "core/render/CaptionMotion.h"

#include "core/model/CaptionEntrance.h"
#include "core/model/CaptionExit.h"
#include "core/render/plan/CaptionText.h"
#include "core/render/plan/Motion.h"

#include <algorithm>
#include <cmath>

namespace murbo::CaptionMotion {
namespace {

constexpr double exitLength = 0.15;     // seconds
constexpr double entranceLength = 0.22; // seconds, of the entrances that overlays have too
constexpr double travel = 60;           // pixels that "rise" and "sink" cover, at a short side of 1080

std::string entranceName(const CaptionCue& cue, const CaptionStyle& style) {
    if (cue.move && cue.move->enter) return *cue.move->enter;
    return style.motion.value_or("pop");
}

std::string exitName(const CaptionCue& cue, const CaptionStyle& style) {
    if (cue.move && cue.move->exit) return *cue.move->exit;
    return style.exit.value_or("none");
}

/// From 0 to 1 over `length` seconds, fast at first.
double settled(double age, double length) {
    const double rest = 1 - std::clamp(age / length, 0.0, 1.0);
    return 1 - rest * rest;
}

/// From where a caption settles that rises, `rest` being 0 at its place.
double risen(Size frame, double rest) {
    return travel * std::min(frame.width, frame.height) / 1080 * rest;
}

/// An entrance that layers have too. Captions come the other way up: one that slides up settles from above.
Movement shared(const std::string& name, double progress, Size frame) {
    const auto entrance = fromRawText<Entrance>(name);
    Movement at = entrance ? Motion::enter(*entrance, progress, frame) : Movement();
    at.dy = -at.dy;
    return at;
}

Movement entrance(const std::string& name, bool big, double age, Size frame) {
    const auto own = fromRawText<CaptionEntrance>(name);
    if (!own) return shared(name, std::min(age / entranceLength, 1.0), frame);
    const bool grows = *own == CaptionEntrance::pop || *own == CaptionEntrance::words;
    if (big && grows) return {.scale = 0.6 + 0.4 * settled(age, 0.16)};
    switch (*own) {
        case CaptionEntrance::none:
            return {};
        case CaptionEntrance::pop:
            return {.scale = 0.86 + 0.14 * settled(age, 0.12)};
        case CaptionEntrance::words:
            return {.scale = 0.94 + 0.06 * settled(age, 0.12)};
        case CaptionEntrance::fade:
            return {.opacity = settled(age, 0.15)};
        case CaptionEntrance::rise:
            return {.dy = -risen(frame, 1 - settled(age, 0.2)), .opacity = settled(age, 0.2)};
    }
    return {};
}

Movement exit(const std::string& name, double left, Size frame) {
    if (left >= exitLength) return {};
    const double rest = std::max(left / exitLength, 0.0);
    const auto own = fromRawText<CaptionExit>(name);
    if (!own) {
        const auto back = shared(name, rest, frame);
        return {.dx = back.dx, .dy = back.dy, .opacity = back.opacity};
    }
    switch (*own) {
        case CaptionExit::none:
            return {};
        case CaptionExit::fade:
            return {.opacity = rest};
        case CaptionExit::pop:
            return {.scale = std::max(rest, 0.001)};
        case CaptionExit::sink:
            return {.dy = risen(frame, 1 - rest), .opacity = rest};
    }
    return {};
}

}

Movement at(const CaptionCue& cue, const CaptionStyle& style, double time, Size frame) {
    return entrance(entranceName(cue, style), cue.big, time - cue.start, frame)
        .with(exit(exitName(cue, style), cue.end - time, frame));
}

std::optional<std::int64_t> reveal(const CaptionCue& cue, const CaptionStyle& style, double time) {
    if (entranceName(cue, style) != "words") return std::nullopt;
    const auto words = static_cast<double>(CaptionText::words(cue.text).size());
    if (words < 2) return std::nullopt;
    return static_cast<std::int64_t>(std::min(std::trunc(share(cue, time) * words) + 1, words));
}

double share(const CaptionCue& cue, double time) {
    return (time - cue.start) / std::max(cue.end - cue.start, 0.01);
}

}
