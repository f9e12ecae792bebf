#include "app/desktop/WindowPlan.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double sideBySide = 1500; ///< width from which both viewers stand beside each other
constexpr double tallFrom = 1700;
constexpr double largeFrom = 2300;
constexpr double minTimeline = 160;
constexpr double minViewers = 220;
constexpr double minViewer = 260; ///< wide
constexpr double minSidebar = 140;
constexpr double minBrowser = 180;
constexpr double minInspector = 260;

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

/// What the owner gave, or the standard; but no less than is of use, and no more than leaves `others` their
/// room.
double chosen(double given, double standard, double min, double left, double others) {
    return std::clamp(given > 0 ? given : standard, min, std::max(left - others, min));
}

}

WindowPlan WindowPlan::of(const WindowShape& given) {
    WindowPlan plan;
    auto wide = widths(given.width);
    plan.compact = plan.tabs = given.width < sideBySide;
    plan.tall = given.upright && given.wantsTall && given.width >= tallFrom;
    const double height = given.height - bar - line;
    const double top = bar + line;
    double right = given.width;
    // From the outside inwards: each leaves the others at least their least.
    const double viewers = plan.tabs ? minViewer : 2 * minViewer + line;
    const double sidebar = plan.compact ? wide.sidebar : minSidebar;
    if (given.inspector) {
        const double width = chosen(given.inspectorWidth, wide.inspector, minInspector, right,
                                    viewers + sidebar + minBrowser + 3 * line);
        plan.inspector = {right - width, top, width, height};
        right -= width + line;
    }
    if (plan.tall) {
        const double width =
            chosen(given.tall, wide.tall, minViewer, right, minViewer + sidebar + minBrowser + 3 * line);
        plan.video = {right - width, top, width, height};
        right -= width + line;
    }
    const double beside = plan.tall || plan.tabs ? minViewer : viewers;
    if (!plan.compact)
        wide.sidebar = chosen(given.sidebar, wide.sidebar, minSidebar, right, beside + minBrowser + 2 * line);
    wide.browser = chosen(given.browser, wide.browser, minBrowser, right - wide.sidebar, beside + 2 * line);
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
    const double both = right - left - line;
    const double first = chosen(given.source, both / 2, minViewer, both, minViewer);
    plan.source.setWidth(first);
    plan.video = {left + first + line, top, both - first, high};
    return plan;
}

}
