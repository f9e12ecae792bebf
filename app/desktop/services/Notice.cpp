#include "app/desktop/services/Notice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace murbo::Notice {
namespace {

constexpr int systemDecides = -1; ///< how long it stays

}

void show(const QString& title, const QString& text) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    constexpr const char* name = "org.freedesktop.Notifications";
    auto call = QDBusMessage::createMethodCall(name, "/org/freedesktop/Notifications", name, "Notify");
    // Services read markup in the text: a title that holds some is no command.
    call << "Murbo" << 0U << "murbo" << title << text.toHtmlEscaped() << QStringList() << QVariantMap()
         << systemDecides;
    bus.send(call);
}

}
