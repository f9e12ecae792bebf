#include "app/desktop/exports/ExportQueue.h"
#include "tests/desktop/WindowOfProject.h"

using namespace murbo;

namespace {

class ExportQueueTest : public testing::Test {
protected:
    void SetUp() override {
        MURBO_NEEDS_FFMPEG();
        Sources::add(project, Intake::lengths({WindowOfProject::bars()}), "Footage", Source::Kind::file);
    }
    /// A video of one cut of that many seconds, to a file of the test's folder.
    ExportQueue::MovieJob job(double length, const std::filesystem::path& to) const {
        Video video{.number = 1, .title = "Out"};
        video.cuts.edit().push_back({.source = project.sources[0].id, .start = 0, .end = length});
        ExportQueue::MovieJob made{video, project, {}};
        made.order.to = folder / to;
        return made;
    }
    bool ended() const {
        return QTest::qWaitFor([&] { return !queue.running() && queue.waiting() == 0; }, 60000);
    }

    TemporaryFolder folder;
    Project project;
    ExportQueue queue;
};

}

TEST_F(ExportQueueTest, makesOneMovieAfterTheOther) {
    auto first = job(0.5, "a.mp4");
    const auto video = first.video.id;
    queue.add(std::move(first));
    queue.add(job(0.5, "b.mp4"));
    queue.add(job(0.5, "c.mp4"));
    EXPECT_EQ(queue.waiting(), 2);
    EXPECT_TRUE(queue.holds(video));
    EXPECT_TRUE(queue.makes(QString::fromStdString(folder / "c.mp4")));
    queue.remove("2");
    EXPECT_EQ(queue.waiting(), 1) << "one is taken out of the line";
    ASSERT_TRUE(ended());
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

TEST_F(ExportQueueTest, aStoppedMovieLeavesNothingAndTheNextBegins) {
    queue.add(job(4, "a.mp4"));
    queue.add(job(0.2, "b.mp4"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return queue.progress() > 0; }, 20000));
    queue.stop();
    ASSERT_TRUE(ended());
    EXPECT_EQ(queue.rows()[0].state, ExportRow::MovieState::stopped);
    EXPECT_EQ(queue.rows()[0].value(ExportRow::roles().key("stage")).toString(), "stopped");
    EXPECT_EQ(queue.rows()[1].state, ExportRow::MovieState::done);
    EXPECT_EQ(queue.problem(), "") << "to stop is no failure";
    EXPECT_EQ(entriesIn(folder.path), 1);
}

TEST_F(ExportQueueTest, saysWhyAMovieCouldNotBeMadeAndGoesOn) {
    queue.add(job(0.5, "no such folder/a.mp4"));
    ASSERT_TRUE(ended());
    EXPECT_TRUE(queue.problem().startsWith("The video could not be exported. "))
        << queue.problem().toStdString();
    queue.add(job(0.5, "no such folder/b.mp4"));
    queue.add(job(0.2, "c.mp4"));
    ASSERT_TRUE(ended());
    EXPECT_EQ(queue.rows()[2].state, ExportRow::MovieState::done) << "the next one is made all the same";
}
