#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>
#include <string>

namespace murbo {

/// One movie that was asked for, as the list of exports shows it.
struct ExportRow {
    enum class MovieState { waiting, running, done, stopped, failed };

    std::string id;
    QString title; ///< of its video
    QString file;  ///< its path
    MovieState state = MovieState::waiting;
    QString words; ///< what became of it

    bool isEnded() const { return state != MovieState::waiting && state != MovieState::running; }

    bool operator==(const ExportRow&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
