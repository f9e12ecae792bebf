#include "app/desktop/models/Rows.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A row that a list can hold.
struct Row {
    std::string id;
    int number = 0;
    bool operator==(const Row&) const = default;
    static QHash<int, QByteArray> roles() { return {{Qt::UserRole, "number"}}; }
    QVariant value(int) const { return number; }
};

/// What a view knows of a list from its signals alone.
class Watched {
public:
    explicit Watched(const Rows<Row>& watched) : rows(watched) {
        for (int at = 0; at < rows.rowCount(); ++at) numbers.push_back(read(at));
        QObject::connect(&rows, &QAbstractItemModel::rowsInserted,
                         [this](const QModelIndex&, int from, int to) {
                             for (int at = from; at <= to; ++at)
                                 numbers.insert(numbers.begin() + at, read(at));
                             ++changes;
                         });
        QObject::connect(&rows, &QAbstractItemModel::rowsRemoved,
                         [this](const QModelIndex&, int from, int to) {
                             numbers.erase(numbers.begin() + from, numbers.begin() + to + 1);
                             ++changes;
                         });
        QObject::connect(&rows, &QAbstractItemModel::rowsMoved,
                         [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                             const int number = numbers[from];
                             numbers.erase(numbers.begin() + from);
                             numbers.insert(numbers.begin() + (to > from ? to - 1 : to), number);
                             ++changes;
                         });
        QObject::connect(
            &rows, &QAbstractItemModel::dataChanged,
            [this](const QModelIndex& from, const QModelIndex&) { numbers[from.row()] = read(from.row()); });
    }

    std::vector<int> numbers;
    int changes = 0;

private:
    int read(int row) const { return rows.data(rows.index(row), Qt::UserRole).toInt(); }
    const Rows<Row>& rows;
};

std::vector<Row> rowsOf(const std::string& letters) {
    std::vector<Row> rows;
    for (const char letter : letters) rows.push_back({std::string(1, letter), letter});
    return rows;
}

int changesFrom(const std::string& before, const std::string& after) {
    Rows<Row> rows;
    rows.assign(rowsOf(before));
    const Watched view(rows);
    rows.assign(rowsOf(after));
    return view.changes;
}

}

TEST(Rows, touchOnlyWhatIsAnother) {
    EXPECT_EQ(changesFrom("abcdef", "abcdef"), 0);
    EXPECT_EQ(changesFrom("abcdef", "abcxdef"), 1);
    EXPECT_EQ(changesFrom("abcdef", "abdef"), 1);
    EXPECT_EQ(changesFrom("abcdef", "bcdefa"), 1) << "one goes to the end";
    EXPECT_EQ(changesFrom("abcdef", "fabcde"), 1) << "one comes to the front";
}

TEST(Rows, whatAViewKnowsIsAlwaysWhatIsThere) {
    std::mt19937 random(7);
    Rows<Row> rows;
    Watched view(rows);
    for (int round = 0; round < 400; ++round) {
        std::vector<Row> next;
        std::string letters = "abcdefghijklmnop";
        std::shuffle(letters.begin(), letters.end(), random);
        letters.resize(random() % letters.size());
        if (round % 3 == 0) std::sort(letters.begin(), letters.end());
        for (const char letter : letters)
            next.push_back({std::string(1, letter), static_cast<int>(random() % 3)});
        rows.assign(next);
        ASSERT_EQ(rows.rows(), next) << round;
        std::vector<int> numbers;
        for (const auto& row : next) numbers.push_back(row.number);
        ASSERT_EQ(view.numbers, numbers) << round;
    }
}

TEST(Rows, ofTwoWithOneIdTheFirstCounts) {
    Rows<Row> rows;
    rows.assign({{"a", 1}, {"a", 2}, {"b", 3}});
    EXPECT_EQ(rows.rows(), (std::vector<Row>{{"a", 1}, {"b", 3}}));
}
