#include "app/desktop/Desktop.h"
#include "tests/desktop/OnWindow.h"

#include <QDirIterator>
#include <QQmlComponent>

using namespace murbo;

using DesktopTest = OnWindow<WindowOfProject>;

TEST_F(DesktopTest, everyViewLoadsWithoutAComplaint) {
    QQmlEngine engine;
    QDirIterator files(":/murbo/qml", {"*.qml"}, QDir::Files);
    int count = 0;
    while (files.hasNext()) {
        const QQmlComponent view(&engine, QUrl("qrc" + files.next()));
        EXPECT_TRUE(view.isReady()) << view.errorString().toStdString();
        ++count;
    }
    EXPECT_GT(count, 20);
}
