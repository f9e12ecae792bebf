#include "app/desktop/captions/CaptionRow.h"

namespace murbo {
namespace {

enum {
    timeRole = Qt::UserRole,
    textRole,
    bigRole,
    hiddenRole,
    brokenRole,
    byHandRole,
    pickedRole,
    currentRole
};

}

QHash<int, QByteArray> CaptionRow::roles() {
    return {{timeRole, "time"},     {textRole, "words"},    {bigRole, "big"},       {hiddenRole, "hidden"},
            {brokenRole, "broken"}, {byHandRole, "byHand"}, {pickedRole, "picked"}, {currentRole, "current"}};
}

QVariant CaptionRow::value(int role) const {
    switch (role) {
        case timeRole:
            return time;
        case textRole:
            return text;
        case bigRole:
            return big;
        case hiddenRole:
            return hidden;
        case brokenRole:
            return broken;
        case byHandRole:
            return byHand;
        case pickedRole:
            return picked;
        case currentRole:
            return current;
        default:
            return {};
    }
}

}
