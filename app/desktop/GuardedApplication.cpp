#include "app/desktop/GuardedApplication.h"

namespace murbo {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) try {
    return QGuiApplication::notify(receiver, event);
} catch (const std::exception& error) {
    const auto words = QString::fromUtf8(error.what());
    qWarning("%s", error.what());
    // Later: whoever shows it may be in the middle of what has just failed.
    QMetaObject::invokeMethod(
        this, [this, words] { emit failed(words); }, Qt::QueuedConnection);
    return true;
}

}
