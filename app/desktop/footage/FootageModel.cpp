#include "app/desktop/footage/FootageModel.h"

#include "app/editor/Timecode.h"

#include <algorithm>

namespace murbo {
namespace {

enum FootageRole { nameRole = Qt::UserRole, sizeRole, lengthRole, detailRole, problemRole, lookedRole };

}

void FootageModel::setRows(std::vector<FootageRow> rows) {
    beginResetModel();
    listed = std::move(rows);
    endResetModel();
}

void FootageModel::update(std::size_t first, std::vector<FootageRow> rows) {
    if (rows.empty() || first + rows.size() > listed.size()) return;
    std::ranges::move(rows, listed.begin() + static_cast<std::ptrdiff_t>(first));
    emit dataChanged(index(static_cast<int>(first)), index(static_cast<int>(first + rows.size()) - 1));
}

void FootageModel::remove(int row) {
    if (row < 0 || row >= rowCount()) return;
    beginRemoveRows({}, row, row);
    listed.erase(listed.begin() + row);
    endRemoveRows();
}

void FootageModel::removeUnlooked() {
    auto rows = listed;
    std::erase_if(rows, [](const FootageRow& row) { return !row.looked; });
    setRows(std::move(rows));
}

int FootageModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(listed.size());
}

QHash<int, QByteArray> FootageModel::roleNames() const {
    return {{nameRole, "name"},     {sizeRole, "size"},       {lengthRole, "length"},
            {detailRole, "detail"}, {problemRole, "problem"}, {lookedRole, "looked"}};
}

QVariant FootageModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = listed[static_cast<std::size_t>(index.row())];
    switch (role) {
        case nameRole:
            return row.name;
        case sizeRole:
            return row.size;
        case lengthRole:
            return row.canComeIn() ? QString::fromStdString(Timecode::clock(row.length)) : QString();
        case detailRole:
            return row.detail;
        case problemRole:
            return row.problem;
        case lookedRole:
            return row.looked;
        default:
            return {};
    }
}

}
