#include "app/desktop/viewer/Eyedropper.h"

#include "app/desktop/viewer/FrameView.h"

#include <algorithm>
#include <utility>

namespace murbo {

void Eyedropper::ask(QObject* given) {
    asker = given;
    seen.clear();
    emit activeChanged();
    emit colourChanged();
}

void Eyedropper::look(FrameView* view, const QPointF& point) {
    const auto now = view && active() ? colourAt(*view, point) : QString();
    if (now == seen) return;
    seen = now;
    emit colourChanged();
}

void Eyedropper::take() {
    if (!active() || seen.isEmpty()) return;
    emit taken(asker, seen);
    stop();
}

bool Eyedropper::cancel() {
    if (!active()) return false;
    stop();
    return true;
}

void Eyedropper::stop() {
    auto* who = std::exchange(asker, nullptr);
    seen.clear();
    emit activeChanged();
    emit colourChanged();
    emit letGo(who);
}

QString Eyedropper::colourAt(const FrameView& view, const QPointF& point) {
    const auto place = view.picture();
    const auto bitmap = view.last();
    if (bitmap.empty() || place.isEmpty() || !place.contains(point)) return {};
    const auto across = (point.x() - place.left()) / place.width();
    const auto down = (point.y() - place.top()) / place.height();
    const int x = std::clamp(static_cast<int>(across * bitmap.width()), 0, bitmap.width() - 1);
    const int y = std::clamp(static_cast<int>(down * bitmap.height()), 0, bitmap.height() - 1);
    int sums[3] = {};
    int count = 0;
    for (int row = std::max(y - side / 2, 0); row <= std::min(y + side / 2, bitmap.height() - 1); ++row)
        for (int at = std::max(x - side / 2, 0); at <= std::min(x + side / 2, bitmap.width() - 1); ++at) {
            const auto* pixel = bitmap.row(row) + 4 * at;
            for (int part = 0; part < 3; ++part) sums[part] += pixel[2 - part]; // blue comes first
            ++count;
        }
    QString colour;
    for (const int sum : sums) colour += QString("%1").arg((sum + count / 2) / count, 2, 16, QChar('0'));
    return colour.toUpper();
}

}
