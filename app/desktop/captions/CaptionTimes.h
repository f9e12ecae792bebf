#pragma once

#include "app/desktop/captions/CaptionList.h"

#include <QObject>

namespace murbo {

/// When the caption that is picked begins and ends, to be typed.
class CaptionTimes : public QObject {
    Q_OBJECT
    Q_PROPERTY(double start READ start NOTIFY changed)
    Q_PROPERTY(double end READ end NOTIFY changed)

public:
    CaptionTimes(Editor& session, const CaptionList& list);

    double start() const; ///< video seconds; 0 where none is picked
    double end() const;
    /// Brings an end of it to a video time, as near as it may go.
    Q_INVOKABLE void set(bool start, double time);

signals:
    void changed();

private:
    Editor& session;
    const CaptionList& captions;
};

}
