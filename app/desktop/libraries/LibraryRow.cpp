#include "app/desktop/libraries/LibraryRow.h"

namespace murbo {
namespace {

enum LibraryRole { kindRole = Qt::UserRole, groupRole, nameRole, aboutRole, lengthRole, bookRole, pathRole };

const char* nameOf(LibraryRow::Kind kind) {
    static constexpr const char* names[] = {"book", "sound", "leftOut"};
    return names[static_cast<int>(kind)];
}

}

bool LibraryRow::operator==(const LibraryRow& other) const {
    const bool sameBook = book == other.book || (book && other.book && *book == *other.book);
    return sameBook && id == other.id && kind == other.kind && group == other.group && name == other.name &&
           about == other.about && length == other.length;
}

QHash<int, QByteArray> LibraryRow::roles() {
    return {{kindRole, "kind"},     {groupRole, "group"}, {nameRole, "name"}, {aboutRole, "about"},
            {lengthRole, "length"}, {bookRole, "book"},   {pathRole, "path"}};
}

QVariant LibraryRow::value(int role) const {
    switch (role) {
        case kindRole:
            return nameOf(kind);
        case groupRole:
            return group;
        case nameRole:
            return name;
        case aboutRole:
            return about;
        case lengthRole:
            return length;
        case bookRole:
            return book ? QString::fromStdString(book->id()) : QString();
        case pathRole:
            return QString::fromStdString(file.string());
        default:
            return {};
    }
}

}
