#include "app/desktop/drawn/MeasuredText.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr int labelSize = 11;
constexpr double slack = 1e-3; ///< points that rounding may add

QString ellipsisText() {
    return QStringLiteral("…");
}

}

QFont MeasuredText::font(bool bold) {
    auto font = QGuiApplication::font();
    font.setPixelSize(labelSize);
    if (bold) font.setWeight(QFont::DemiBold);
    return font;
}

MeasuredText::MeasuredText(const QString& text, bool bold) : line(text.simplified()) {
    const auto face = font(bold);
    const QFontMetricsF metrics(face);
    dots = metrics.horizontalAdvance(ellipsisText());
    QTextLayout layout(line, face);
    layout.beginLayout();
    const auto shaped = layout.createLine();
    layout.endLayout();
    if (!shaped.isValid()) return;
    // Where some of it runs from right to left a place in the line is no width up to there.
    const auto length = static_cast<int>(line.size());
    const bool plain = std::abs(shaped.cursorToX(length) - shaped.naturalTextWidth()) < 1;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, line);
    for (auto next = letters.toNextBoundary(); next > 0; next = letters.toNextBoundary())
        ends.push_back({next, plain ? shaped.cursorToX(static_cast<int>(next))
                                    : metrics.horizontalAdvance(line.left(next))});
}

QString MeasuredText::fitting(double wide, bool ellipsis) const {
    if (width() <= wide + slack) return line;
    const double room = ellipsis ? wide - dots : wide;
    if (room < 0) return {};
    const auto over =
        std::ranges::find_if(ends, [room](const LetterEnd& end) { return end.width > room + slack; });
    if (over == ends.begin()) return ellipsis ? ellipsisText() : QString();
    const auto kept = line.left(std::prev(over)->at);
    return ellipsis ? kept + ellipsisText() : kept.trimmed();
}

}
