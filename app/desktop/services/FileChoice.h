#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <optional>

namespace murbo {

/// The system's own dialog for choosing files, by its portal. Where there is none `unavailable` comes, and
/// the window's own picker does it. One choice at a time; main thread only.
class FileChoice : public QObject {
    Q_OBJECT

public:
    /// On the session's bus, or on one that is given.
    explicit FileChoice(std::optional<QDBusConnection> bus = {}, QObject* parent = nullptr);

    /// Lets the owner choose: "movies", any number of them; a "folder"; one "movie", file of "sounds",
    /// "media" or "markers"; one "file" of any kind.
    Q_INVOKABLE void choose(const QString& kind, const QString& title);

signals:
    /// Local paths; none where the owner thought better of it.
    void chosen(const QString& kind, const QStringList& paths);
    void unavailable(const QString& kind);

private:
    Q_SLOT void responded(uint response, const QVariantMap& results);
    void listen(const QString& request);
    void fail();

    std::optional<QDBusConnection> bus;
    QString waitingFor; ///< the kind asked for; empty where nothing is
    QString path;       ///< of the request
    int number = 0;
};

}
