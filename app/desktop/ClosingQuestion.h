#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

namespace murbo {

class OpenProject;

/// Whether a project may be closed at once, or its owner is asked first: work that has run for a while,
/// movies on their way out, and what could not be saved would be lost.
class ClosingQuestion : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString words READ words NOTIFY asked)

public:
    static constexpr qint64 patience = 10000; ///< ms of work that nobody is asked about

    explicit ClosingQuestion(OpenProject& project, QObject* parent = nullptr);

    /// True where nothing is lost, or the owner has agreed. Else asks, and is false.
    bool mayClose();
    QString words() const { return text; } ///< what would be lost
    Q_INVOKABLE void agree();

signals:
    void asked();
    void agreed();

private:
    QString loss() const;

    OpenProject& project;
    QElapsedTimer working;
    QString text;
    bool yes = false;
};

}
