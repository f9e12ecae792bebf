#include "app/desktop/IconProvider.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <set>

#include <gtest/gtest.h>

using namespace murbo;

TEST(IconProvider, drawsInTheColourAskedFor) {
    IconProvider icons;
    QSize size;
    const auto picture = icons.requestImage("play/63AEFF", &size, {36, 36});
    EXPECT_EQ(size, QSize(36, 36));
    int coloured = 0;
    for (int y = 0; y < 36; ++y)
        for (int x = 0; x < 36; ++x) coloured += picture.pixelColor(x, y) == QColor("#63AEFF");
    EXPECT_GT(coloured, 40);
    EXPECT_EQ(icons.requestImage("nothing of that name/FFFFFF", nullptr, {}).pixelColor(12, 12).alpha(), 0);
}

TEST(IconProvider, hasEveryIconThatAViewNames) {
    std::set<QString> missing;
    QDirIterator files(":/murbo/qml", {"*.qml"}, QDir::Files);
    const QRegularExpression named("glyph: \"([a-z0-9-]+)\"|Icon \\{[^}]*name: \"([a-z0-9-]+)\"");
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto found = named.globalMatch(QString::fromUtf8(file.readAll()));
        while (found.hasNext()) {
            const auto match = found.next();
            const auto name = match.captured(1) + match.captured(2);
            if (!QFile::exists(":/murbo/icons/" + name + ".svg")) missing.insert(name);
        }
    }
    EXPECT_TRUE(missing.empty()) << missing.begin()->toStdString();
}
