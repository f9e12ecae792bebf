#include "app/desktop/services/FileChoice.h"
#include "app/desktop/services/FileFilter.h"
#include "app/desktop/services/MediaEndings.h"
#include "tests/Approved.h"
#include "tests/desktop/PrivateBus.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Answers every choice with the same files.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")

public:
    QVariantMap options;
    QString title;
    uint response = 0;

    // The library asks for plain names of types here.
    Q_SLOT QDBusObjectPath OpenFile(const QString&, const QString& asked, const QVariantMap& given) {
        title = asked;
        options = given;
        const auto sender = message().service().mid(1).replace('.', '_');
        const auto path =
            "/org/freedesktop/portal/desktop/request/" + sender + "/" + given["handle_token"].toString();
        auto answer = QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
        answer << response
               << QVariantMap{{"uris", QStringList{"file:///x/a%20b.mp4", "https://example.org/c.mp4"}}};
        connection().send(answer); // even before the call itself is answered
        return QDBusObjectPath(path);
    }
};

}

TEST(FileChoice, takesWhatThePortalAnswersAndOnlyLocalFiles) {
    const PrivateBus bus;
    if (bus.address.isEmpty()) GTEST_SKIP() << "there is no dbus-daemon";
    FakePortal portal;
    ASSERT_TRUE(bus.serve(portal));
    FileChoice choice(bus.connect("window"));
    QSignalSpy chosen(&choice, &FileChoice::chosen);
    choice.choose("movies", "Add Footage");
    ASSERT_TRUE(chosen.wait(5000));
    EXPECT_EQ(chosen[0][0], "movies");
    EXPECT_EQ(chosen[0][1].toStringList(), QStringList{"/x/a b.mp4"});
    EXPECT_EQ(portal.title, "Add Footage");
    EXPECT_TRUE(portal.options["multiple"].toBool());
    const auto filters = qdbus_cast<QList<FileFilter>>(portal.options["filters"].value<QDBusArgument>());
    const auto sent = FileFilter::of("movies");
    ASSERT_EQ(filters.size(), sent.size());
    for (int at = 0; at < sent.size(); ++at) {
        EXPECT_EQ(filters[at].name, sent[at].name);
        EXPECT_EQ(filters[at].patterns, sent[at].patterns);
    }

    portal.response = 1; // the owner thought better of it
    choice.choose("folder", "Folder");
    ASSERT_TRUE(chosen.wait(5000));
    EXPECT_EQ(chosen[1][1].toStringList(), QStringList());
    EXPECT_TRUE(portal.options["directory"].toBool());
    EXPECT_FALSE(portal.options.contains("filters"));
}

/// What each kind of choice offers, and what the endings are taken for.
TEST(FileFilter, areAsApproved) {
    std::string text;
    for (const auto* kind : {"movies", "movie", "sounds", "media", "markers", "folder", ""})
        for (const auto& filter : FileFilter::of(kind)) {
            text += std::string(kind) + ", “" + filter.name.toStdString() + "”:";
            for (const auto& pattern : filter.patterns)
                text += (pattern.type == 0 ? " " : " type ") + pattern.text.toStdString();
            text += "\n";
        }
    for (const auto* name :
         {"a.PNG", "a.webp", "a.opus", "a.mp3", "a.mp4", "a.txt", "a.csv", "a.mbplay", "a", ".png"}) {
        text += std::string(name) + ":";
        if (MediaEndings::isPicture(name)) text += " picture";
        if (MediaEndings::isSound(name)) text += " sound";
        if (MediaEndings::isMarkers(name)) text += " markers";
        if (MediaEndings::isPlaybook(name)) text += " playbook";
        text += "\n";
    }
    expectApproved("desktop/tours/files.txt", text);
}

TEST(FileChoice, saysSoWhereThereIsNoPortal) {
    const PrivateBus bus;
    if (bus.address.isEmpty()) GTEST_SKIP() << "there is no dbus-daemon";
    FileChoice choice(bus.connect("alone"));
    QSignalSpy unavailable(&choice, &FileChoice::unavailable);
    choice.choose("movies", "Add Footage");
    ASSERT_TRUE(unavailable.wait(8000));
    EXPECT_EQ(unavailable[0][0], "movies");
}

#include "FileChoiceTest.moc"
