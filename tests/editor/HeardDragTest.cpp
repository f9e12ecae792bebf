#include "app/editor/Editor.h"
#include "tests/MadeMedia.h"
#include "tests/playback/FakeOutput.h"

#include <QCoreApplication>
#include <cmath>

using namespace murbo;

namespace {

/// A session on a cut of a tone, playing.
class PlayedTone {
public:
    PlayedTone() {
        while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        editor.playback.playPause();
        while (!output || output.load()->starts == 0) std::this_thread::yield();
    }

    /// How loud the next tenth of a second is at its loudest.
    float loudest() {
        std::vector<float> block(2 * 4800);
        output.load()->fill(block);
        output.load()->played = output.load()->played + 0.1;
        float most = 0;
        for (const float sample : block) most = std::max(most, std::abs(sample));
        return most;
    }
    static Project made() {
        Project project;
        const auto file = made::file("tone.mp4",
                                     "-f lavfi -i color=c=teal:size=320x180:rate=30:duration=8 -f lavfi "
                                     "-i sine=frequency=440:duration=8 -pix_fmt yuv420p -c:a aac");
        const Source source{.path = file.string(), .length = 8};
        project.sources.edit().push_back(source);
        Video video{.number = 1, .title = "Tone"};
        video.cuts.edit() = {{.source = source.id, .start = 0, .end = 8}};
        project.videos.edit().push_back(video);
        return project;
    }

    std::atomic<FakeOutput*> output = nullptr;
    Editor editor{made(),
                  {},
                  std::nullopt,
                  [](const Project&) {},
                  [this] {
                      auto made = std::make_unique<FakeOutput>();
                      output = made.get();
                      return made;
                  }};
};

}

TEST(HeardDrag, aLevelIsHeardWhileTheHandStillHoldsIt) {
    MURBO_NEEDS_FFMPEG();
    PlayedTone played;
    played.loudest();
    EXPECT_GT(played.loudest(), 0.05F);
    for (const double level : {0.8, 0.5, 0.0})
        played.editor.dragAndRedraw([&](Project& project) {
            auto& video = project.videos.edit()[0];
            if (!video.look) video.look.emplace();
            video.look->mix = Mix{.video = level};
        });
    while (played.editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    played.loudest(); // the old level goes over into the new one
    EXPECT_LT(played.loudest(), 0.001F) << "the last of the three";
    EXPECT_TRUE(played.editor.unfinished()) << "and it is no step yet";
    EXPECT_NE(played.editor.playback.rate(), 0);
    played.editor.cancelDrag();
    while (played.editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    played.loudest();
    EXPECT_GT(played.loudest(), 0.05F);
}
