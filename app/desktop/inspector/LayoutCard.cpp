#include "app/desktop/inspector/LayoutCard.h"

namespace murbo {
namespace {

enum CardRole { layoutRole = Qt::UserRole, nameRole, pictureRole };

}

QHash<int, QByteArray> LayoutCard::roles() {
    return {{layoutRole, "layout"}, {nameRole, "name"}, {pictureRole, "picture"}};
}

QVariant LayoutCard::value(int role) const {
    switch (role) {
        case layoutRole:
            return QString::fromStdString(id);
        case nameRole:
            return name;
        case pictureRole:
            return picture;
        default:
            return {};
    }
}

}
