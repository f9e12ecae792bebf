#include "app/desktop/GuardedApplication.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

class Throws : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User) throw std::runtime_error("The disk is on fire.");
        return QObject::event(event);
    }
};

}

TEST(GuardedApplication, whatAnEventThrowsIsSaidAndEndsNothing) {
    auto* application = qobject_cast<GuardedApplication*>(QGuiApplication::instance());
    ASSERT_TRUE(application);
    QSignalSpy failed(application, &GuardedApplication::failed);
    Throws receiver;
    QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
    EXPECT_TRUE(failed.wait(5000));
    EXPECT_EQ(failed[0][0].toString(), "The disk is on fire.");
}
