#include "platform/image/ImageNode.h"

namespace murbo {

bool keepsAxes(const Transform& transform) {
    return (transform.b == 0 && transform.c == 0) || (transform.a == 0 && transform.d == 0);
}

Image::Node::Node(Kind what, Rect itsExtent, Rect itsBody, Rect itsOpaque, bool isSingle)
    : kind(std::move(what)), extent(itsExtent), body(itsBody), opaque(itsOpaque), single(isSingle) {}

/// Takes the children apart one after the other: a graph thousands deep would overflow the stack if each node
/// destroyed the next.
Image::Node::~Node() {
    std::vector<std::shared_ptr<const Node>> waiting;
    giveUp(waiting);
    while (!waiting.empty()) {
        const auto node = std::move(waiting.back());
        waiting.pop_back();
        if (node.use_count() != 1) continue;
        std::atomic_thread_fence(std::memory_order_acquire);
        const_cast<Node&>(*node).giveUp(waiting);
    }
}

void Image::Node::giveUp(std::vector<std::shared_ptr<const Node>>& children) {
    const auto give = [&](Image& child) { children.push_back(std::move(child.root)); };
    std::visit(
        [&](auto& node) {
            if constexpr (requires { node.of; }) give(node.of);
            if constexpr (requires { node.above; }) give(node.above), give(node.below);
        },
        kind);
}

}
