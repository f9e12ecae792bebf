#include "app/desktop/ClosingQuestion.h"
#include "app/editor/commands/CutCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using ClosingQuestionTest = OnWindow<WindowOfProject>;

TEST_F(ClosingQuestionTest, asksWhileAMovieIsOnItsWayOutAndNotOtherwise) {
    EXPECT_TRUE(ClosingQuestion(shown->project()).mayClose());

    auto& editor = shown->editor();
    editor.holdClip(editor.project().clips[0].id);
    for (int cut = 0; cut < 40; ++cut) CutCommands::addToEnd(editor);
    ExportQueue::MovieJob job{*editor.video(), editor.project(), {}};
    job.order.to = shown->folder / "movie.mp4";
    auto next = job;
    next.order.to = shown->folder / "next.mp4";
    ClosingQuestion question(shown->project());
    shown->project().exports()->add(std::move(job));
    EXPECT_FALSE(question.mayClose());
    EXPECT_EQ(question.words(),
              "“Untitled Video” is being exported. Nothing of it is kept if you close now.");
    shown->project().exports()->add(std::move(next));
    EXPECT_FALSE(question.mayClose());
    EXPECT_EQ(question.words(),
              "“Untitled Video” and 1 more are being exported. Nothing of them is kept if you close now.");
    shown->project().setSheet("");
    ASSERT_TRUE(shown->project().exports()->running());
    shown->window().close();
    shown->settle();
    ASSERT_EQ(shown->desktop->windows().size(), 1U);
    EXPECT_EQ(shown->project().sheet(), "closing");

    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->project().sheet(), "");
    shown->window().close();
    shown->settle();
    shown->opened = nullptr; // it goes
    QTest::keyClick(&shown->desktop->windows().front()->window(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->desktop->windows().empty(); }, 10000));
    EXPECT_FALSE(std::filesystem::exists(shown->folder / "movie.mp4"));
}
