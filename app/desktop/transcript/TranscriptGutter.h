#pragma once

#include "app/desktop/drawn/DrawnView.h"

#include <QVariantMap>

class QTextBlock;

namespace murbo {

class TranscriptPage;

/// What a transcript shows beneath and beside its words: tags, silences, what the open video plays, the
/// marked range, and the word that is spoken. It lies below a text area and scrolls with it.
class TranscriptGutter : public DrawnView {
    Q_OBJECT
    Q_PROPERTY(QObject* page READ pageObject WRITE setPage NOTIFY pageChanged)
    Q_PROPERTY(double scroll MEMBER scrolled NOTIFY placeChanged)
    Q_PROPERTY(double textLeft MEMBER left NOTIFY placeChanged)
    Q_PROPERTY(double textTop MEMBER top NOTIFY placeChanged)
    Q_PROPERTY(QVariantMap colours MEMBER theme NOTIFY placeChanged)

public:
    explicit TranscriptGutter(QQuickItem* parent = nullptr);

    QObject* pageObject() const;
    void setPage(QObject* page);

    /// The row at a height of this item; -1 for none.
    Q_INVOKABLE int rowAt(double y) const;
    /// From where to where the row lies that is spoken, in points of the text; empty for none.
    Q_INVOKABLE QRectF spokenPlace() const;

signals:
    void pageChanged();
    void placeChanged();

protected:
    DrawList drawList() override;

private:
    QRectF place(const QTextBlock& block) const;
    QTextBlock blockAt(double y) const;
    void drawRow(DrawList& list, int row, const QTextBlock& block, bool marked) const;
    void drawQuiet(DrawList& list, const QRectF& place, double seconds) const;
    void drawWord(DrawList& list, const QTextBlock& block) const;
    QColor colour(const char* name) const;

    QPointer<TranscriptPage> page;
    QVariantMap theme;
    double scrolled = 0;
    double left = 0;
    double top = 0;
};

}
