#include "app/editor/Editor.h"
#include "core/intake/samples/Loudness.h"
#include "core/render/footage/Filmstrip.h"
#include "tests/MadeMedia.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

using namespace murbo;

TEST(EditorPlayers, theSoundOfEachSourceIsMeasuredOnce) {
    MURBO_NEEDS_FFMPEG();
    Project project;
    for (const auto* volume : {"1", "0.01"})
        project.sources.edit().push_back(
            {.path = made::file(std::string("sine-") + volume + ".wav",
                                "-f lavfi -i sine=duration=1 -af volume=" + std::string(volume))
                         .string(),
             .length = 1});
    project.sources.edit().push_back({.path = "/nowhere/gone.wav", .length = 1});
    Editor editor(project, {}, std::nullopt, [](const Project&) {});
    int measured = 0;
    QObject::connect(&editor, &Editor::loudnessChanged, &editor, [&] { ++measured; });
    const auto& sources = editor.project().sources;
    for (int turn = 0; turn < 2; ++turn)
        for (const auto& source : *sources) EXPECT_FALSE(editor.loudness(source.id)) << "not yet";
    EXPECT_FALSE(editor.loudness(UUID())) << "of no source, ever";
    for (const QDeadlineTimer patience(60000); measured < 3 && !patience.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
    ASSERT_EQ(measured, 3);
    const auto level = [&](std::size_t at) { return editor.loudness(sources[at].id)->level(0, 1); };
    EXPECT_GT(level(0), level(1) + 0.1);
    EXPECT_GT(level(1), 0);
    EXPECT_EQ(level(2), 0) << "silent";
    editor.loudness(UUID());
    while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(measured, 3);
    const auto find = [&](const std::string& path) {
        editor.apply([&](Project& found) { found.sources.edit()[2].path = path; });
        editor.loudness(sources[2].id);
    };
    find(sources[1].path);
    find("/nowhere/yet.wav");
    find(sources[0].path); // while the others are listened to
    for (const QDeadlineTimer patience(60000); !editor.loudness(sources[2].id) && !patience.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
    EXPECT_EQ(level(2), level(0));
}

TEST(EditorPlayers, heldFootageIsPlayedFromWhereItIsFound) {
    MURBO_NEEDS_FFMPEG();
    Project project;
    project.sources.edit().push_back({.path = "/nowhere/gone.mp4", .length = 1});
    Editor editor(project, {}, std::nullopt, [](const Project&) {});
    const auto rest = [&] {
        while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    editor.setMissing({project.sources[0].id});
    editor.holdSource(project.sources[0].id);
    rest();
    EXPECT_FALSE(editor.filmstrip(project.sources[0].id));
    const auto file = made::file("small.mp4", "-f lavfi -i testsrc=size=64x36:duration=1");
    editor.setMissing({});
    editor.apply([&](Project& found) { found.sources.edit()[0].path = file.string(); });
    rest();
    EXPECT_EQ(editor.source.frameSize(), QSize(64, 36));
    EXPECT_TRUE(editor.filmstrip(project.sources[0].id)->make(0));
}
