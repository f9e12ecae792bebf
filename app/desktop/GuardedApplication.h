#pragma once

#include <QGuiApplication>

namespace murbo {

/// The application of the windows. What is thrown while it handles an event ends that one handling and not
/// the program: nothing of the owner's is lost, and the words are shown.
class GuardedApplication : public QGuiApplication {
    Q_OBJECT

public:
    using QGuiApplication::QGuiApplication;

    bool notify(QObject* receiver, QEvent* event) override;

signals:
    void failed(const QString& words);
};

}
