#pragma once

#include "app/desktop/ProjectWindow.h"
#include "app/desktop/transcript/TranscriptPage.h"
#include "tests/desktop/SpokenWindow.h"

#include <QTextBlock>
#include <QTextDocument>

namespace murbo {

/// A window with the Transcript tab up.
struct TranscriptWindow : SpokenWindow {
    TranscriptWindow() {
        show(InspectorTab::transcript);
        area = textIn(window().contentItem());
    }
    static QQuickItem* textIn(QQuickItem* in) {
        if (in->metaObject()->indexOfProperty("textDocument") >= 0) return in;
        for (auto* child : in->childItems())
            if (auto* found = textIn(child)) return found;
        return nullptr;
    }
    TranscriptPage& page() { return opened->transcriptPage(); }
    QString block(int at) { return page().document().text()->findBlockByNumber(at).text(); }
    /// Presses into a row; the distance is in points from where its words begin.
    void press(int row, double right = 1, Qt::KeyboardModifiers held = Qt::NoModifier) {
        const auto at = placeOf(row, right);
        click(at.x(), at.y(), held);
    }
    QPointF placeOf(int row, double right) {
        QRectF place;
        QMetaObject::invokeMethod(area, "positionToRectangle", Q_RETURN_ARG(QRectF, place),
                                  Q_ARG(int, page().document().position(row)));
        return area->mapToScene(place.center() + QPointF(right, 0));
    }

    QQuickItem* area = nullptr;
};

}
