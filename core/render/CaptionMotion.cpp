#include "core/render/CaptionMotion.h"

#include "core/render/plan/CaptionText.h"

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

double pixels(Size frame) {
    return travel * std::min(frame.width, frame.height) / 1080;
}

Motion::Offset entrance(const std::string& name, bool big, double age, Size frame) {
    Motion::Offset at;
    if (big && (name == "pop" || name == "words")) {
        at.scale = 0.6 + 0.4 * settled(age, 0.16);
    } else if (name == "pop") {
        at.scale = 0.86 + 0.14 * settled(age, 0.12);
    } else if (name == "words") {
        at.scale = 0.94 + 0.06 * settled(age, 0.12);
    } else if (name == "fade") {
        at.opacity = settled(age, 0.15);
    } else if (name == "rise") {
        at.opacity = settled(age, 0.2);
        at.y = pixels(frame) * (1 - settled(age, 0.2));
    } else if (name != "none") {
        at = Motion::enter(name, std::min(age / entranceLength, 1.0), frame.width, frame.height);
    }
    return at;
}

void leave(Motion::Offset& at, const std::string& name, double left, Size frame) {
    if (name == "none" || left >= exitLength) return;
    const double rest = std::max(left / exitLength, 0.0);
    if (name == "fade") {
        at.opacity *= rest;
    } else if (name == "pop") {
        at.scale *= std::max(rest, 0.001);
    } else if (name == "sink") {
        at.y -= pixels(frame) * (1 - rest);
        at.opacity *= rest;
    } else {
        const auto back = Motion::enter(name, rest, frame.width, frame.height);
        at.x += back.x;
        at.y += back.y;
        at.opacity *= back.opacity;
    }
}

}

Motion::Offset offset(const CaptionCue& cue, const CaptionStyle& style, double time, Size frame) {
    auto at = entrance(entranceName(cue, style), cue.big, time - cue.start, frame);
    leave(at, exitName(cue, style), cue.end - time, frame);
    return at;
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
