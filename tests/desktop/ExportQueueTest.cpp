#include "app/desktop/exports/ExportQueue.h"
#include "tests/desktop/WindowOfProject.h"

#include <QSignalSpy>

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
        Video video{.number = 1, .title = "Out " + to.stem().string()};
        video.cuts.edit().push_back({.source = project.sources[0].id, .start = 0, .end = length});
        ExportQueue::MovieJob made{video, project, {}};
        made.order.to = folder / to;
        return made;
    }
    bool ended() const {
        return QTest::qWaitFor([&] { return !queue.running() && queue.waiting() == 0; }, 60000);
    }

    /// What those who show it read after each "changed", where it was something else.
    void note() {
        auto now = queue.title().toStdString() + " + " + std::to_string(queue.waiting());
        for (const auto& words : {queue.finished(), queue.problem()})
            now += ", " + words.section('/', -1).toStdString();
        if (queue.running() && queue.progress() > 0) now += ", not from its start";
        if (noted.empty() || noted.back() != now) noted.push_back(now);
    }

    TemporaryFolder folder;
    Project project;
    ExportQueue queue;
    std::vector<std::string> noted;
};

}

TEST_F(ExportQueueTest, makesOneMovieAfterTheOther) {
    auto first = job(0.5, "a.mp4");
    const auto video = first.video.id;
    QObject::connect(&queue, &ExportQueue::changed, [this] { note(); });
    const QSignalSpy said(&queue, &ExportQueue::said), idle(&queue, &ExportQueue::idle);
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
    EXPECT_EQ(noted,
              (std::vector<std::string>{"Out a + 0, , ", "Out a + 1, , ", "Out a + 2, , ", "Out a + 1, , ",
                                        "Out c + 0, a.mp4, ", " + 0, c.mp4, ", " + 0, , "}));
    ASSERT_EQ(said.count(), 2);
    EXPECT_EQ(said[0][0], "Exported Out a");
    EXPECT_EQ(idle.count(), 1) << "not between two";
}

TEST_F(ExportQueueTest, aStoppedMovieLeavesNothingAndTheNextBegins) {
    queue.add(job(4, "a.mp4"));
    queue.add(job(0.2, "b.mp4"));
    EXPECT_EQ(queue.left(), "") << "nobody knows yet";
    ASSERT_TRUE(QTest::qWaitFor([&] { return queue.progress() > 0.02; }, 20000));
    EXPECT_TRUE(queue.left().endsWith(" left")) << queue.left().toStdString();
    const QSignalSpy said(&queue, &ExportQueue::said);
    queue.remove("1");
    ASSERT_TRUE(ended());
    EXPECT_EQ(said[0][0], "Stopped: nothing of “Out a” was kept");
    EXPECT_EQ(queue.left(), "");
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
