#pragma once

#include <QObject>

namespace murbo {

/// Has screen readers read out what an alert says anew while it stands there. One that was hidden is read out
/// by being shown.
class Announcer : public QObject {
    Q_OBJECT

public:
    /// `item` is shown, has the role of an alert and a name.
    Q_INVOKABLE void say(QObject* item);

signals:
    void said(QObject* item);
};

}
