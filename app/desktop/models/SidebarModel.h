#pragma once

#include "app/desktop/models/Rows.h"
#include "app/editor/SidebarPick.h"

namespace murbo {

class Editor;

/// One line of the sidebar.
struct SidebarRow {
    std::string id; ///< a collection's raw text, or "source:" and its id
    QString section;
    QString title;
    QString icon;
    int count = 0; ///< below 0 where nobody counts
    bool missing = false;
    bool picked = false;
    SidebarPick pick;

    bool operator==(const SidebarRow&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

/// What the sidebar lists: the sources under the headings of their intakes, then the collections.
class SidebarModel : public Rows<SidebarRow> {
    Q_OBJECT
    Q_PROPERTY(int pickedRow READ pickedRow NOTIFY pickedRowChanged)

public:
    explicit SidebarModel(Editor& editor, QObject* parent = nullptr);

    int pickedRow() const;
    Q_INVOKABLE void pick(int row);

signals:
    void pickedRowChanged();

private:
    void refresh();

    Editor& editor;
};

}
