#pragma once

#include "app/desktop/footage/FootageRow.h"

#include <QAbstractListModel>
#include <vector>

namespace murbo {

/// The list of files that may come in, for a view. Any number of them at once.
class FootageModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<FootageRow>& rows() const { return listed; }
    void setRows(std::vector<FootageRow> rows);
    /// Puts what is now known of some rows, from `first` on, in their places.
    void update(std::size_t first, std::vector<FootageRow> rows);
    void remove(int row);
    /// Leaves out what nobody has looked at yet.
    void removeUnlooked();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<FootageRow> listed;
};

}
