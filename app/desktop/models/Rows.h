#pragma once

#include <QAbstractListModel>
#include <QByteArray>
#include <QHash>
#include <QVariant>
#include <algorithm>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace murbo {

/// What is to be done to a list of ids to make it another, in order. Rows that stay are not touched, so that
/// scrolling, focus and screen readers stay where they are.
struct RowChange {
    enum class Kind { insert, remove, move };
    Kind kind;
    int from = 0; ///< the row; of a move where it was
    int to = 0;   ///< of a move where it goes, as the row it then has
    bool operator==(const RowChange&) const = default;
};

/// The changes from one list of unique ids to another: what stays in its order is not moved.
std::vector<RowChange> rowChanges(const std::vector<std::string>& before,
                                  const std::vector<std::string>& after);

/// A list for a view, of values with an `id`. `assign` brings it to new values by the fewest changes.
/// `Row` needs: `std::string id`, `==`, `static QHash<int, QByteArray> roles()`, `QVariant value(int) const`.
template <class Row>
class Rows : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<Row>& rows() const { return shown; }

    /// Ids are unique; of rows with one id the first counts.
    void assign(std::vector<Row> rows) {
        dropDoubles(rows);
        std::unordered_map<std::string, const Row*> byId;
        for (const auto& row : rows) byId.emplace(row.id, &row);
        for (const auto& change : rowChanges(ids(shown), ids(rows))) carryOut(change, rows, byId);
        for (std::size_t at = 0; at < rows.size(); ++at) {
            if (shown[at] == rows[at]) continue;
            shown[at] = std::move(rows[at]);
            const auto changed = index(static_cast<int>(at));
            emit dataChanged(changed, changed);
        }
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(shown.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
        return shown[static_cast<std::size_t>(index.row())].value(role);
    }
    QHash<int, QByteArray> roleNames() const override { return Row::roles(); }

private:
    static void dropDoubles(std::vector<Row>& rows) {
        std::unordered_map<std::string, int> seen;
        std::erase_if(rows, [&](const Row& row) { return ++seen[row.id] > 1; });
    }
    static std::vector<std::string> ids(const std::vector<Row>& rows) {
        std::vector<std::string> list;
        for (const auto& row : rows) list.push_back(row.id);
        return list;
    }

    void carryOut(const RowChange& change, const std::vector<Row>& rows,
                  const std::unordered_map<std::string, const Row*>& byId) {
        const auto at = shown.begin() + change.from;
        switch (change.kind) {
            case RowChange::Kind::insert:
                beginInsertRows({}, change.from, change.from);
                shown.insert(at, *byId.at(rows[static_cast<std::size_t>(change.to)].id));
                return endInsertRows();
            case RowChange::Kind::remove:
                beginRemoveRows({}, change.from, change.from);
                shown.erase(at);
                return endRemoveRows();
            case RowChange::Kind::move: {
                beginMoveRows({}, change.from, change.from, {},
                              change.to > change.from ? change.to + 1 : change.to);
                auto row = std::move(*at);
                shown.erase(at);
                shown.insert(shown.begin() + change.to, std::move(row));
                return endMoveRows();
            }
        }
    }

    std::vector<Row> shown;
};

}
