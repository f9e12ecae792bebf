#pragma once

#include "app/desktop/models/Rows.h"

namespace murbo {

/// One entry of a folder.
struct FolderRow {
    std::string id; ///< its path
    QString name;
    QString detail;
    bool folder = false;
    bool project = false;

    bool operator==(const FolderRow&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

/// What lies in a folder, for choosing files within the window, where the system has no dialog of its own.
/// Hidden entries are left out; folders come first; names are in the order that people put them.
class FolderModel : public Rows<FolderRow> {
    Q_OBJECT
    Q_PROPERTY(QString folder READ folder WRITE setFolder NOTIFY folderChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY folderChanged)
    Q_PROPERTY(QString wanted MEMBER wanted NOTIFY wantedChanged)

public:
    explicit FolderModel(QObject* parent = nullptr);

    QString folder() const { return path; }
    void setFolder(const QString& folder);
    QString problem() const { return words; }
    Q_INVOKABLE void up();
    Q_INVOKABLE QString pathOf(int row) const;
    Q_INVOKABLE bool isFolder(int row) const;

signals:
    void folderChanged();
    void wantedChanged();

private:
    void list();

    QString path;
    QString words;
    QString wanted; ///< "movies", "markers", "projects" or "folders"
};

}
