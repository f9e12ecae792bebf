#include "platform/image/ImageNode.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace murbo {

Rect ImageNode::RoundedRectangle::solid() const {
    if (line > 0) return {};
    const auto inset = [&](double x, double y) {
        const Rect inner{rect.x + x, rect.y + y, rect.width - 2 * x, rect.height - 2 * y};
        return inner.empty() ? Rect{} : inner;
    };
    const double corner = radius * (1 - std::sqrt(0.5));
    const std::array inner{inset(0, radius), inset(radius, 0), inset(corner, corner)};
    return *std::max_element(inner.begin(), inner.end(), [](const Rect& one, const Rect& other) {
        return one.width * one.height < other.width * other.height;
    });
}

ImageNode::ImageNode(Kind what, Rect itsExtent, Rect itsBody, Rect itsOpaque, bool isSingle)
    : kind(std::move(what)), extent(itsExtent), body(itsBody), opaque(itsOpaque), single(isSingle) {}

/// What nodes that are gone held on to.
struct ImageNode::Remains {
    std::vector<Ref> nodes;
    std::vector<std::function<Ref()>> makers;

    static thread_local Remains* now; ///< where a node is being taken apart

    /// Taken out of the list before it is destroyed: destroying it may add to the list.
    template <typename T>
    static T last(std::vector<T>& list) {
        T taken = std::move(list.back());
        list.pop_back();
        return taken;
    }
    void letGo() {
        while (!nodes.empty() || !makers.empty()) {
            if (nodes.empty())
                last(makers);
            else
                last(nodes);
        }
    }
};

thread_local ImageNode::Remains* ImageNode::Remains::now = nullptr;

/// Takes what it held apart one after the other: a graph thousands deep would overflow the stack if each node
/// destroyed the next.
ImageNode::~ImageNode() {
    if (Remains::now) {
        giveUp(*Remains::now);
    } else {
        Remains remains;
        Remains::now = &remains;
        giveUp(remains);
        remains.letGo();
        Remains::now = nullptr;
    }
}

void ImageNode::giveUp(Remains& remains) {
    const auto give = [&](Ref& child) { remains.nodes.push_back(std::move(child)); };
    std::visit(
        [&](auto& node) {
            if constexpr (requires { node.of; }) give(node.of);
            if constexpr (requires { node.above; }) give(node.above), give(node.below);
            if constexpr (requires { node.mask; }) give(node.mask);
            if constexpr (requires { node.make; }) remains.makers.push_back(std::move(node.make));
        },
        kind);
}

bool ImageNode::covers(const Transform& place, const Rect& area) const {
    if (opaque.isEverything()) return true;
    return place.keepsAxes() && place.apply(opaque).contains(area);
}

}
