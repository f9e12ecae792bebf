#pragma once

#include "core/playbooks/Book.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>
#include <filesystem>
#include <memory>
#include <string>

namespace murbo {

/// One thing of the library: a playbook, a sound, or a folder that is no playbook.
struct LibraryRow {
    enum class Kind { book, sound, leftOut };

    std::string id;
    Kind kind = Kind::book;
    QString group; ///< the heading that it stands under
    QString name;
    QString about;
    QString length;
    std::shared_ptr<const Book> book;
    std::filesystem::path file;
    std::string folder; ///< of a sound, within the library

    /// By what a view shows.
    bool operator==(const LibraryRow& other) const;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
