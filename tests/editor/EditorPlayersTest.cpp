#include "app/editor/Editor.h"
#include "core/intake/samples/Loudness.h"
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
}
