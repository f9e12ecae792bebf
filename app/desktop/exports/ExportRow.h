#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>
#include <string>

namespace murbo {

/// One movie that was asked for, as the list of exports shows it.
struct ExportRow {
    enum class State { waiting, running, done, stopped, failed };

    std::string id;
    QString title; ///< of its video
    QString file;  ///< its path
    State state = State::waiting;
    QString words; ///< what became of it

    bool isEnded() const { return state != State::waiting && state != State::running; }

    bool operator==(const ExportRow&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
