#include "app/desktop/transcript/TranscriptGutter.h"

#include "app/desktop/transcript/TranscriptPage.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>

namespace murbo {
namespace {

constexpr double bar = 3;      ///< width of the mark of what the video plays
constexpr double tagLeft = 10; ///< points
constexpr double tagHeight = 20;
constexpr double ruleHeight = 20;
constexpr double ruleWords = 84; ///< points that the words on a silence take at most
constexpr double rightMargin = 12;
constexpr double above = 2; ///< points that a row's ground reaches over its words
constexpr double below = 6; ///< so that neighbours of one ground meet

}

TranscriptGutter::TranscriptGutter(QQuickItem* parent) : DrawnView(parent) {
    connect(this, &TranscriptGutter::placeChanged, this, &QQuickItem::update);
}

QObject* TranscriptGutter::pageObject() const {
    return page;
}

void TranscriptGutter::setPage(QObject* given) {
    if (page) page->disconnect(this);
    page = qobject_cast<TranscriptPage*>(given);
    if (page) connect(page, &TranscriptPage::looksChanged, this, &QQuickItem::update);
    update();
    emit pageChanged();
}

QColor TranscriptGutter::colour(const char* name) const {
    return QColor(theme.value(name).toString());
}

/// Where a block's words lie, in points of this item.
QRectF TranscriptGutter::place(const QTextBlock& block) const {
    const auto* layout = page->document().text()->documentLayout();
    return layout->blockBoundingRect(block).translated(left, top - scrolled);
}

QTextBlock TranscriptGutter::blockAt(double y) const {
    auto* text = page ? page->document().text() : nullptr;
    if (!text) return {};
    const int position = text->documentLayout()->hitTest({0, y + scrolled - top}, Qt::FuzzyHit);
    return text->findBlock(std::max(position, 0));
}

int TranscriptGutter::rowAt(double y) const {
    const auto block = blockAt(y);
    if (!block.isValid() || page->document().rows().empty()) return -1;
    return place(block).bottom() + below < y ? -1 : block.blockNumber();
}

QRectF TranscriptGutter::spokenPlace() const {
    auto* text = page ? page->document().text() : nullptr;
    if (!text || page->spokenRow() < 0) return {};
    return place(text->findBlockByNumber(page->spokenRow())).translated(0, scrolled);
}

DrawList TranscriptGutter::drawList() {
    DrawList list;
    if (!page || theme.isEmpty() || page->document().rows().empty()) return list;
    const auto count = static_cast<int>(page->document().rows().size());
    const auto marked = page->marked().value_or(TranscriptPage::RowRange());
    for (auto block = blockAt(0); block.isValid() && block.blockNumber() < count; block = block.next()) {
        if (place(block).top() - ruleHeight > height()) break;
        const int row = block.blockNumber();
        drawRow(list, row, block, marked.first <= row && row <= marked.last);
    }
    return list;
}

void TranscriptGutter::drawRow(DrawList& list, int row, const QTextBlock& block, bool marked) const {
    const auto& line = page->document().rows()[row];
    const auto words = place(block);
    const QRectF band(0, words.top() - above, width(), words.height() + above + below);
    if (std::ranges::binary_search(page->hits(), row))
        list.fill(band, colour("found"));
    else if (marked)
        list.fill(band, colour("marked"));
    else if (row == page->spokenRow())
        list.fill(band, colour("current"));
    if (line.used) list.fill({0, band.top(), bar, band.height()}, colour("used"));
    if (line.quiet > 0) drawQuiet(list, words, line.quiet);
    if (row == page->spokenRow()) drawWord(list, block);
    list.items.emplace_back(DrawList::Label{
        {tagLeft, words.top(), left - tagLeft, tagHeight}, line.tag, colour("tag"), true, false});
}

void TranscriptGutter::drawQuiet(DrawList& list, const QRectF& words, double seconds) const {
    const double y = words.top() - ruleHeight;
    const auto text = QString("quiet, %1 s").arg(seconds, 0, 'f', 1);
    list.items.emplace_back(
        DrawList::Label{{left, y, ruleWords, ruleHeight}, text, colour("tag"), true, false});
    const double from = left + ruleWords;
    list.fill({from, y + ruleHeight / 2, width() - from - rightMargin, 1}, colour("rule"));
}

void TranscriptGutter::drawWord(DrawList& list, const QTextBlock& block) const {
    const auto [from, to] = page->spokenWord();
    if (to <= from || to >= block.length() ||
        block.text() != page->document().rows()[block.blockNumber()].text)
        return;
    const auto line = block.layout()->lineForTextPosition(static_cast<int>(from));
    if (!line.isValid()) return;
    const auto [x0, x1] =
        std::minmax({line.cursorToX(static_cast<int>(from)), line.cursorToX(static_cast<int>(to))});
    const auto words = place(block);
    list.fill({words.left() + x0 - 1, words.top() + line.y() + 1, x1 - x0 + 2, line.height() - 2},
              colour("spoken"));
}

}
