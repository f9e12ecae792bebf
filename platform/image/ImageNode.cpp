#include "platform/image/ImageNode.h"

namespace murbo {

bool keepsAxes(const Transform& transform) {
    return (transform.b == 0 && transform.c == 0) || (transform.a == 0 && transform.d == 0);
}

bool isShift(const Transform& transform) {
    const auto whole = [](double value) {
        return std::abs(value - std::round(value)) < 1e-6 && std::abs(value) < (1 << 28);
    };
    return transform.a == 1 && transform.b == 0 && transform.c == 0 && transform.d == 1 &&
           whole(transform.tx) && whole(transform.ty);
}

Image::Node::Node(Kind what, Rect itsExtent, Rect itsBody, Rect itsOpaque, bool isSingle)
    : kind(std::move(what)), extent(itsExtent), body(itsBody), opaque(itsOpaque), single(isSingle) {}

/// What nodes that are gone held on to.
struct Image::Node::Waiting {
    std::vector<std::shared_ptr<const Node>> nodes;
    std::vector<std::function<Image()>> makers;

    static thread_local Waiting* now; ///< where a node is being taken apart

    /// Out of the list before it is gone: that may add to the list.
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

thread_local Image::Node::Waiting* Image::Node::Waiting::now = nullptr;

/// Takes what it held apart one after the other: a graph thousands deep would overflow the stack if each node
/// destroyed the next.
Image::Node::~Node() {
    if (Waiting::now) {
        giveUp(*Waiting::now);
    } else {
        Waiting waiting;
        Waiting::now = &waiting;
        giveUp(waiting);
        waiting.letGo();
        Waiting::now = nullptr;
    }
}

void Image::Node::giveUp(Waiting& waiting) {
    const auto give = [&](Image& child) { waiting.nodes.push_back(std::move(child.root)); };
    std::visit(
        [&](auto& node) {
            if constexpr (requires { node.of; }) give(node.of);
            if constexpr (requires { node.above; }) give(node.above), give(node.below);
            if constexpr (requires { node.mask; }) give(node.mask);
            if constexpr (requires { node.make; }) waiting.makers.push_back(std::move(node.make));
        },
        kind);
}

}
