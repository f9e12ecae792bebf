#include "app/desktop/captions/PresetRow.h"

namespace murbo {
namespace {

enum { nameRole = Qt::UserRole, pictureRole, chosenRole };

}

QHash<int, QByteArray> PresetRow::roles() {
    return {{nameRole, "name"}, {pictureRole, "picture"}, {chosenRole, "chosen"}};
}

QVariant PresetRow::value(int role) const {
    switch (role) {
        case nameRole:
            return name;
        case pictureRole:
            return picture;
        case chosenRole:
            return chosen;
        default:
            return {};
    }
}

}
