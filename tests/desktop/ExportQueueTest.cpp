#include "app/desktop/exports/ExportQueue.h"
#include "tests/desktop/WindowOfProject.h"

using namespace murbo;

namespace {

/// A video of one cut of a source.
ExportQueue::MovieJob job(const Project& project, double length, const std::filesystem::path& to) {
    Video video{.number = 1, .title = "Out"};
    video.cuts.edit().push_back({.source = project.sources[0].id, .start = 0, .end = length});
    ExportQueue::MovieJob made{video, project, {}};
    made.order.to = to;
    return made;
}

Project footage() {
    Project project;
    Sources::add(project, Intake::lengths({WindowOfProject::bars()}), "Footage", Source::Kind::file);
    return project;
}

bool ended(const ExportQueue& queue) {
    return QTest::qWaitFor([&] { return !queue.running() && queue.waiting() == 0; }, 60000);
}

}

TEST(ExportQueue, makesOneMovieAfterTheOther) {
    MURBO_NEEDS_FFMPEG();
    const TemporaryFolder folder;
    const auto project = footage();
    ExportQueue queue;
    auto first = job(project, 0.5, folder / "a.mp4");
    const auto video = first.video.id;
    queue.add(std::move(first));
    queue.add(job(project, 0.5, folder / "b.mp4"));
    queue.add(job(project, 0.5, folder / "c.mp4"));
    EXPECT_EQ(queue.waiting(), 2);
    EXPECT_TRUE(queue.holds(video));
    EXPECT_TRUE(queue.makes(QString::fromStdString(folder / "c.mp4")));
    queue.remove("2");
    EXPECT_EQ(queue.waiting(), 1) << "one is taken out of the line";
    ASSERT_TRUE(ended(queue));
    EXPECT_EQ(queue.problem(), "");
    EXPECT_TRUE(std::filesystem::exists(folder / "a.mp4"));
    EXPECT_FALSE(std::filesystem::exists(folder / "b.mp4"));
    EXPECT_EQ(queue.finished().toStdString(), (folder / "c.mp4").string());
    EXPECT_FALSE(queue.holds(video));
    ASSERT_EQ(queue.rows().size(), 2) << "what became of them is there to be read";
    EXPECT_EQ(queue.rows()[0].state, ExportRow::MovieState::done);
    queue.clear();
    EXPECT_TRUE(queue.rows().empty());
}

TEST(ExportQueue, aStoppedMovieLeavesNothingAndTheNextBegins) {
    MURBO_NEEDS_FFMPEG();
    const TemporaryFolder folder;
    ExportQueue queue;
    const auto project = footage();
    queue.add(job(project, 4, folder / "a.mp4"));
    queue.add(job(project, 0.2, folder / "b.mp4"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return queue.progress() > 0; }, 20000));
    queue.stop();
    ASSERT_TRUE(ended(queue));
    EXPECT_EQ(queue.rows()[0].state, ExportRow::MovieState::stopped);
    EXPECT_EQ(queue.rows()[1].state, ExportRow::MovieState::done);
    EXPECT_EQ(queue.problem(), "") << "to stop is no failure";
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST(ExportQueue, saysWhyAMovieCouldNotBeMade) {
    MURBO_NEEDS_FFMPEG();
    const TemporaryFolder folder;
    ExportQueue queue;
    queue.add(job(footage(), 0.5, folder / "no such folder" / "a.mp4"));
    ASSERT_TRUE(ended(queue));
    EXPECT_TRUE(queue.problem().startsWith("The video could not be exported. "))
        << queue.problem().toStdString();
}
