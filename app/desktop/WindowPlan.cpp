#include "app/desktop/WindowPlan.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double sideBySide = 1500; ///< width from which both viewers stand beside each other
constexpr double tallFrom = 1700;
constexpr double largeFrom = 2300;
constexpr double minTimeline = 160;
constexpr double minViewers = 220;

struct Widths {
    double sidebar;
    double browser;
    double inspector;
    double tall;
    double timeline; ///< its height
};

Widths widths(double width) {
    if (width >= largeFrom) return {220, 420, 400, 720, 444};
    if (width >= sideBySide) return {196, 304, 340, 520, 372};
    return {46, 250, 316, 0, 338};
}

}

WindowPlan WindowPlan::of(const WindowShape& given) {
    WindowPlan plan;
    const auto wide = widths(given.width);
    plan.compact = plan.tabs = given.width < sideBySide;
    plan.tall = given.upright && given.wantsTall && given.width >= tallFrom;
    const double height = given.height - bar - line;
    const double top = bar + line;
    double right = given.width;
    if (given.inspector) {
        plan.inspector = {right - wide.inspector, top, wide.inspector, height};
        right -= wide.inspector + line;
    }
    if (plan.tall) {
        plan.video = {right - wide.tall, top, wide.tall, height};
        right -= wide.tall + line;
    }
    const double wanted = given.timeline > 0 ? given.timeline : wide.timeline;
    const double low = std::clamp(wanted, minTimeline, std::max(height - minViewers, minTimeline));
    plan.timeline = {0, given.height - low, right, low};
    const double high = height - low - line;
    plan.sidebar = {0, top, wide.sidebar, high};
    plan.browser = {plan.sidebar.right() + line, top, wide.browser, high};
    const double left = plan.browser.right() + line;
    plan.source = {left, top, right - left, high};
    if (plan.tall) return plan;
    if (plan.tabs) {
        plan.video = plan.source;
        return plan;
    }
    const double half = (right - left - line) / 2;
    plan.source.setWidth(half);
    plan.video = {left + half + line, top, half, high};
    return plan;
}

}
