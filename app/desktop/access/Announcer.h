#pragma once

#include <QObject>

namespace murbo {

/// Has screen readers read out what comes up by itself, as messages do.
class Announcer : public QObject {
    Q_OBJECT

public:
    /// `item` has a name and a role.
    Q_INVOKABLE void say(QObject* item) const;
};

}
