#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>
#include <filesystem>
#include <vector>

namespace murbo {

/// One process of the desktop for each person: a second start hands its words to the first and ends. Where no
/// socket can be made, each start is a process of its own.
class SingleProcess : public QObject {
    Q_OBJECT

public:
    explicit SingleProcess(QObject* parent = nullptr);

    /// Hands projects to a process that runs already. False where there is none: then this is the one, and
    /// listens.
    bool handOver(const std::vector<std::filesystem::path>& projects);

signals:
    /// Another start asks to open these; for the start window where there are none.
    void asked(const QStringList& paths);

private:
    static QString address();
    void answer();

    QLocalServer server;
};

}
