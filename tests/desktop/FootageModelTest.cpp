#include "app/desktop/footage/FootageModel.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

using namespace murbo;

TEST(FootageModel, takesWhatBecomesKnownInItsPlaceAlone) {
    FootageModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::vector<FootageRow> rows(3);
    for (int at = 0; at < 3; ++at) rows[at].name = QString::number(at);
    model.setRows(rows);
    auto known = rows[1];
    known.looked = true;
    known.length = 65;
    model.update(1, {known});
    const auto role = model.roleNames().key("length");
    EXPECT_EQ(model.data(model.index(1), role), "1:05");
    EXPECT_EQ(model.data(model.index(2), role), "");
    model.update(2, {known, known}); // rows that are not there any more
    EXPECT_EQ(model.data(model.index(2), role), "");
    model.remove(0);
    model.remove(7);
    EXPECT_EQ(model.rowCount(), 2);
}
