#pragma once

#include "app/desktop/drawn/DrawnView.h"

namespace murbo {

/// A still of the footage: of a stretch the one at a share of it, which follows the mouse while that is over
/// it.
class StillView : public DrawnView {
    Q_OBJECT
    Q_PROPERTY(QString source MEMBER source NOTIFY changed)
    Q_PROPERTY(double from MEMBER from NOTIFY changed)
    Q_PROPERTY(double to MEMBER to NOTIFY changed)
    Q_PROPERTY(QObject* footage MEMBER footage NOTIFY footageChanged)

public:
    explicit StillView(QQuickItem* parent = nullptr);

signals:
    void changed();
    void footageChanged();

protected:
    DrawList drawList() override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;

private:
    void setShare(double share);

    QString source;
    double from = 0; ///< seconds on the source
    double to = 0;
    QObject* footage = nullptr;
    double share;
};

}
