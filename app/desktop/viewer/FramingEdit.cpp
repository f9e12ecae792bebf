#include "app/desktop/viewer/FramingEdit.h"

#include <algorithm>

namespace murbo::FramingEdit {
namespace {

using BoxHandles::BoxHandle;

constexpr double eyesDown = 0.42; ///< of the face's box, where nobody said more
const QRectF whole(0, 0, 1, 1);

Box box(const QRectF& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

Box pulledBox(const Box& from, BoxHandle handle, const QPointF& by) {
    return box(BoxHandles::pulled(rect(from), handle, by, whole, {smallest, smallest}));
}

bool isNear(const QPointF& a, const QPointF& b, const QSizeF& reach) {
    return std::abs(a.x() - b.x()) <= reach.width() && std::abs(a.y() - b.y()) <= reach.height();
}

std::vector<double> lines(std::initializer_list<double> given) {
    std::vector<double> all{0, 1};
    for (const double one : given) all.push_back(std::clamp(one, 0.0, 1.0));
    std::ranges::sort(all);
    const auto same = std::ranges::unique(all);
    all.erase(same.begin(), same.end());
    return all;
}

}

QRectF rect(const Box& box) {
    return {box.x, box.y, box.w, box.h};
}

QPointF eyes(const Framing& framing) {
    if (framing.eyes) return {framing.eyes->x, framing.eyes->y};
    return {framing.face.x + framing.face.w / 2, framing.face.y + framing.face.h * eyesDown};
}

FramingGrip at(const Framing& framing, const QPointF& point, const QSizeF& reach) {
    if (isNear(eyes(framing), point, reach)) return {FramingPart::eyes, BoxHandle::body};
    const auto face = BoxHandles::at(rect(framing.face), point, reach);
    const auto content = BoxHandles::at(rect(framing.content), point, reach);
    const bool byEdge = content != BoxHandle::none && content != BoxHandle::body;
    if (face != BoxHandle::none && (face != BoxHandle::body || !byEdge)) return {FramingPart::face, face};
    return {FramingPart::content, content};
}

Framing pulled(const Framing& framing, const FramingGrip& hold, const QPointF& by) {
    auto next = framing;
    switch (hold.part) {
        case FramingPart::content:
            next.content = pulledBox(framing.content, hold.handle, by);
            break;
        case FramingPart::face:
            next.face = pulledBox(framing.face, hold.handle, by);
            break;
        case FramingPart::eyes: {
            const auto to = eyes(framing) + by;
            next.eyes = Spot{std::clamp(to.x(), 0.0, 1.0), std::clamp(to.y(), 0.0, 1.0)};
            break;
        }
        case FramingPart::split:
            next.split = std::clamp(framing.split + by.y(), minPanel, 1 - minPanel);
            break;
    }
    return next;
}

std::vector<QRectF> outside(const Framing& framing) {
    const auto content = rect(framing.content);
    const auto face = rect(framing.face);
    const auto across = lines({content.left(), content.right(), face.left(), face.right()});
    const auto down = lines({content.top(), content.bottom(), face.top(), face.bottom()});
    std::vector<QRectF> parts;
    for (std::size_t y = 0; y + 1 < down.size(); ++y)
        for (std::size_t x = 0; x + 1 < across.size(); ++x) {
            const QRectF cell(QPointF(across[x], down[y]), QPointF(across[x + 1], down[y + 1]));
            if (!content.contains(cell.center()) && !face.contains(cell.center())) parts.push_back(cell);
        }
    return parts;
}

}
