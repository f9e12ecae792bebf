#include "app/desktop/models/BrowserRow.h"

namespace murbo {
namespace {

enum BrowserRole {
    idRole = Qt::UserRole,
    titleRole,
    tagRole,
    detailRole,
    noteRole,
    lengthRole,
    sourceRole,
    fromRole,
    toRole,
    ratingRole,
    missingRole,
    pickedRole,
    heldRole,
    kindRole,
    hearingRole,
    failedRole
};

}

QString BrowserRow::name(Kind kind) {
    static constexpr const char* kinds[] = {"clip", "source", "video", "bookmark"};
    return kinds[static_cast<int>(kind)];
}

QHash<int, QByteArray> BrowserRow::roles() {
    return {{idRole, "rowId"},  {titleRole, "title"},   {tagRole, "tag"},         {detailRole, "detail"},
            {noteRole, "note"}, {lengthRole, "length"}, {sourceRole, "source"},   {fromRole, "from"},
            {toRole, "to"},     {ratingRole, "rating"}, {missingRole, "missing"}, {pickedRole, "picked"},
            {heldRole, "held"}, {kindRole, "kind"},     {hearingRole, "hearing"}, {failedRole, "failed"}};
}

QVariant BrowserRow::value(int role) const {
    switch (role) {
        case idRole:
            return QString::fromStdString(id);
        case titleRole:
            return title;
        case tagRole:
            return tag;
        case detailRole:
            return detail;
        case noteRole:
            return note;
        case lengthRole:
            return length;
        case sourceRole:
            return source ? QString::fromStdString(source->text()) : QString();
        case fromRole:
            return from;
        case toRole:
            return to;
        case ratingRole:
            return rating;
        case missingRole:
            return missing;
        case pickedRole:
            return picked;
        case heldRole:
            return held;
        case kindRole:
            return name(kind);
        case hearingRole:
            return hearing;
        case failedRole:
            return failed;
        default:
            return {};
    }
}

}
