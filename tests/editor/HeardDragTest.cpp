#include "app/editor/Editor.h"
#include "tests/MadeMedia.h"

#include <QCoreApplication>
#include <atomic>
#include <cmath>
#include <mutex>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A device that is asked by the test what sounds next.
class AskedOutput : public SoundOutput {
public:
    bool start(Fill given) override {
        const std::lock_guard locked(lock);
        fill = std::move(given);
        return true;
    }
    void stop() override {
        const std::lock_guard locked(lock);
        fill = nullptr;
    }
    double heard() const override { return seconds; }
    bool isStarted() {
        const std::lock_guard locked(lock);
        return fill != nullptr;
    }

    /// How loud the next tenth of a second is at its loudest.
    float loudest() {
        const std::lock_guard locked(lock);
        if (!fill) return -1;
        std::vector<float> block(2 * 4800);
        fill(block);
        seconds = seconds + 0.1;
        float most = 0;
        for (const float sample : block) most = std::max(most, std::abs(sample));
        return most;
    }

private:
    std::mutex lock; // the player starts it on a thread of its own
    Fill fill;
    std::atomic<double> seconds = 0;
};

/// A session on a cut of a tone, playing.
class PlayedTone {
public:
    PlayedTone() {
        while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        editor.playback.playPause();
        while (!output || !output.load()->isStarted()) std::this_thread::yield();
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

    std::atomic<AskedOutput*> output = nullptr;
    Editor editor{made(),
                  {},
                  std::nullopt,
                  [](const Project&) {},
                  [this] {
                      auto made = std::make_unique<AskedOutput>();
                      output = made.get();
                      return made;
                  }};
};

}

TEST(HeardDrag, aLevelIsHeardWhileTheHandStillHoldsIt) {
    MURBO_NEEDS_FFMPEG();
    PlayedTone played;
    played.output.load()->loudest();
    EXPECT_GT(played.output.load()->loudest(), 0.05F);
    for (const double level : {0.8, 0.5, 0.0})
        played.editor.dragAndRedraw([&](Project& project) {
            auto& video = project.videos.edit()[0];
            if (!video.look) video.look.emplace();
            video.look->mix = Mix{.video = level};
        });
    while (played.editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    played.output.load()->loudest(); // the old level goes over into the new one
    EXPECT_LT(played.output.load()->loudest(), 0.001F) << "the last of the three";
    EXPECT_TRUE(played.editor.unfinished()) << "and it is no step yet";
    EXPECT_NE(played.editor.playback.rate(), 0);
    played.editor.cancelDrag();
    while (played.editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    played.output.load()->loudest();
    EXPECT_GT(played.output.load()->loudest(), 0.05F);
}
