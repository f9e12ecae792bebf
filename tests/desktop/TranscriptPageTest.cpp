#include "app/desktop/transcript/TranscriptGutter.h"
#include "tests/desktop/TranscriptWindow.h"

#include <QClipboard>
#include <QColor>
#include <QGuiApplication>
#include <QImage>

using namespace murbo;

using TranscriptPageTest = OnWindow<TranscriptWindow>;

TEST_F(TranscriptPageTest, theCaretIsThePlayheadOfWhatIsHeld) {
    ASSERT_TRUE(shown->area);
    EXPECT_EQ(shown->block(1), "ไม่เป็นไร เดินช้า ๆ");
    shown->press(2);
    EXPECT_EQ(shown->page().caretRow(), 2);
    EXPECT_NEAR(shown->editor().source.time(), 2, 0.2);
    shown->key(Qt::Key_Up);
    EXPECT_LT(shown->editor().source.time(), 1.9);
    EXPECT_EQ(shown->editor().focus(), Viewer::source);
    shown->editor().source.seek(3.4);
    shown->settle(20);
    EXPECT_EQ(shown->page().spokenRow(), 3);
    EXPECT_GT(shown->page().spokenWord().to, 0);
    // The word lies on its mark: of the colour of marks there is more than a hair.
    const auto picture = shown->window().grabWindow();
    int marked = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 970; x < picture.width(); ++x) marked += picture.pixelColor(x, y) == QColor("#8C2F2A");
    EXPECT_GT(marked, 100);
    const auto* gutter = shown->item<TranscriptGutter>();
    const QRectF beside(gutter->mapToScene({}), QSizeF(40, gutter->height()));
    shown->editor().source.seek(0.4);
    shown->settle(20);
    EXPECT_NE(shown->window().grabWindow().copy(beside.toRect()), picture.copy(beside.toRect()));
}

TEST_F(TranscriptPageTest, typingCorrectsALineOnceTheCaretLeavesIt) {
    shown->press(0);
    shown->key(Qt::Key_End);
    shown->type(" left");
    EXPECT_EQ(shown->said(0), "okay we have one heart") << "not while it is typed";
    EXPECT_EQ(shown->cuts(), 1) << "letters are no commands";
    shown->key(Qt::Key_Down);
    EXPECT_EQ(shown->said(0), "okay we have one heart left");
    EXPECT_EQ(shown->step(), "Correct Line");
    shown->key(Qt::Key_End);
    shown->type("x");
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->said(1), "ไม่เป็นไร เดินช้า ๆx");
    EXPECT_EQ(shown->page().document().text()->blockCount(), 4) << "Enter breaks no line";

    // Ctrl+Z takes back what is half typed, then the steps before it.
    shown->type("y");
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->block(1), "ไม่เป็นไร เดินช้า ๆx");
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->block(1), "ไม่เป็นไร เดินช้า ๆ");
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->block(0), "okay we have one heart");
    EXPECT_EQ(shown->onDisk(), shown->editor().project());
}

TEST_F(TranscriptPageTest, escGivesTheLineBack) {
    const auto before = shown->editor().project();
    shown->press(0);
    shown->type("zzz");
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->block(0), "okay we have one heart");
    EXPECT_TRUE(shown->area->hasActiveFocus()) << "the caret stays";
    shown->key(Qt::Key_Escape);
    EXPECT_FALSE(shown->area->hasActiveFocus());
    EXPECT_EQ(shown->editor().project(), before);
}

TEST_F(TranscriptPageTest, whatIsComposedIsShownAndIsNoCorrectionBeforeItIsCommitted) {
    const struct {
        int line;
        Qt::Key place;                     ///< the key that goes there
        std::vector<const char*> composed; ///< one after the other in the same place
        const char* committed;
    } cases[] = {{1, Qt::Key_End, {"แ", "แล", "แล้", "แล้ว"}, "แล้ว"},
                 {2, Qt::Key_End, {"k", "か", "かんじ", "漢字"}, "漢字"},
                 {2, Qt::Key_Home, {"ก"}, "ก็"},
                 {2, Qt::Key_Home, {"noda"}, "のだ"},
                 {2, Qt::Key_Home, {"ㅎ"}, "한국어"},
                 {2, Qt::Key_End, {""}, "👩‍👩‍👧"},
                 {2, Qt::Key_Home, {"x"}, "two\nlines"}};
    for (const auto& [line, place, composed, committed] : cases) {
        const auto before = shown->said(static_cast<std::size_t>(line));
        shown->press(line);
        shown->key(place);
        for (const auto* letters : composed) {
            shown->composing(QString::fromUtf8(letters));
            EXPECT_EQ(shown->area->property("preeditText").toString(), QString::fromUtf8(letters));
            EXPECT_EQ(shown->block(line).toStdString(), before);
        }
        shown->compose(QString::fromUtf8(composed.back()), QString::fromUtf8(committed));
        EXPECT_EQ(shown->area->property("preeditText").toString(), "");
        EXPECT_EQ(shown->said(static_cast<std::size_t>(line)), before) << "the caret is still in it";
        shown->key(Qt::Key_Up);
        const auto words = QString(committed).replace('\n', ' ').toStdString();
        EXPECT_EQ(shown->said(static_cast<std::size_t>(line)),
                  place == Qt::Key_End ? before + words : words + before);
        EXPECT_EQ(shown->page().document().text()->blockCount(), 4);
        EXPECT_EQ(shown->step(), "Correct Line");
        shown->key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(shown->said(static_cast<std::size_t>(line)), before) << "one step";
    }
}

TEST_F(TranscriptPageTest, noKeyJoinsLinesOrTakesOneAway) {
    const auto before = shown->editor().project();
    shown->press(1);
    shown->key(Qt::Key_Home);
    shown->key(Qt::Key_Backspace);
    shown->key(Qt::Key_Up);
    shown->key(Qt::Key_End);
    shown->key(Qt::Key_Delete);
    EXPECT_EQ(shown->page().document().text()->blockCount(), 4);
    shown->key(Qt::Key_A, Qt::ControlModifier);
    shown->key(Qt::Key_Backspace);
    shown->type("q");
    shown->compose("", "ก");
    EXPECT_EQ(shown->page().document().text()->blockCount(), 4);
    EXPECT_EQ(shown->editor().project().transcripts, before.transcripts);
    QGuiApplication::clipboard()->setText("one\ntwo\r\nthree");
    shown->press(3);
    shown->key(Qt::Key_Home);
    shown->key(Qt::Key_V, Qt::ControlModifier);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->said(3), "one two  threeno no 🙂 the floor");
}

TEST_F(TranscriptPageTest, selectedLinesAreTheRangeAndGoIntoTheVideoByTheirKey) {
    shown->press(1);
    shown->press(2, 20, Qt::ShiftModifier);
    ASSERT_TRUE(shown->editor().range());
    EXPECT_EQ(*shown->editor().range(), (Stretch{1, 2.9}));
    EXPECT_EQ(shown->page().addWords(), "Add 2 Lines");
    EXPECT_FALSE(shown->page().isEditable());
    shown->key(Qt::Key_E);
    EXPECT_EQ(shown->cuts(), 2);
    EXPECT_NEAR(shown->editor().video()->cuts[1].start, 1, 1e-6);

    // Beside the words a press takes the whole line.
    const auto place = shown->placeOf(3, 0);
    shown->click(shown->area->mapToScene({20, 0}).x(), place.y());
    EXPECT_EQ(*shown->editor().range(), (Stretch{3, 3.8}));
}

TEST_F(TranscriptPageTest, wordsAreFoundAndGoneTo) {
    auto* search = shown->named("Search the transcript");
    ASSERT_TRUE(search);
    search->forceActiveFocus();
    shown->type("NO");
    EXPECT_EQ(shown->page().hitWords(), "1 of 1");
    EXPECT_NEAR(shown->editor().source.time(), 3, 0.05);
    shown->compose("", "ไม่มี");
    EXPECT_EQ(shown->page().hitWords(), "Not found");
}

TEST_F(TranscriptPageTest, pressedRowsReachFromTheFirstOne) {
    auto& page = shown->page();
    std::vector<std::pair<int, int>> rows;
    QObject::connect(&page, &TranscriptPage::selectionWanted, [&](int from, int to) {
        const auto* text = page.document().text();
        rows.emplace_back(text->findBlock(from).blockNumber(), text->findBlock(to).blockNumber());
    });
    page.pressRow(1, false);
    page.pressRow(2, true);
    page.pressRow(0, true);
    EXPECT_EQ(rows, (std::vector<std::pair<int, int>>{{1, 1}, {1, 2}, {0, 1}}));
}

TEST_F(TranscriptPageTest, aVideosWordsFollowItsPlayer) {
    shown->page().setScope(1);
    shown->settle();
    EXPECT_EQ(shown->page().document().rows().size(), 4);
    const auto range = shown->editor().range();
    shown->press(3, 1);
    EXPECT_NEAR(shown->editor().playback.time(), 3, 0.2);
    EXPECT_EQ(shown->editor().focus(), Viewer::video);
    shown->press(1, 5, Qt::ShiftModifier);
    EXPECT_EQ(shown->editor().range(), range) << "it marks nothing on the source";
}
