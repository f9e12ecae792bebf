#include "app/desktop/services/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace murbo::Clipboard {

void put(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

}
