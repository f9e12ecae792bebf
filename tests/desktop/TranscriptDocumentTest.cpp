#include "app/desktop/transcript/TranscriptDocument.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

TranscriptRow row(const QString& text, bool note = false, double quiet = 0) {
    return {.id = UUID::make(), .source = UUID::make(), .text = text, .note = note, .quiet = quiet};
}

std::vector<TranscriptRow> rows(std::initializer_list<const char*> texts) {
    std::vector<TranscriptRow> list;
    for (const auto* text : texts) list.push_back(row(QString::fromUtf8(text)));
    return list;
}

QStringList blocks(const QTextDocument& document) {
    QStringList list;
    for (auto block = document.begin(); block.isValid(); block = block.next()) list.append(block.text());
    return list;
}

struct Shown {
    explicit Shown(std::vector<TranscriptRow> given) : rows(std::move(given)) {
        document.documentLayout(); // without one a document says nothing of its changes
        text.attach(&document);
        text.assign(rows);
    }
    void type(int block, int place, const QString& words) {
        QTextCursor cursor(document.findBlockByNumber(block));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, place);
        cursor.insertText(words);
    }

    QTextDocument document;
    TranscriptDocument text;
    std::vector<TranscriptRow> rows;
};

}

TEST(TranscriptDocument, changesOnlyTheBlocksThatDiffer) {
    Shown shown(rows({"one", "two", "three", "four"}));
    for (int more = 0; more < 40; ++more) shown.rows.push_back(row("something else that is said"));
    shown.text.assign(shown.rows);
    QTextCursor caret(shown.document.findBlockByNumber(3));
    caret.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 2);
    shown.rows[1].text = "two, corrected";
    shown.rows.insert(shown.rows.begin() + 2, row("between", true));
    int touched = 0;
    QObject::connect(&shown.document, &QTextDocument::contentsChange,
                     [&](int, int removed, int added) { touched += removed + added; });
    shown.text.assign(shown.rows);
    EXPECT_EQ(blocks(shown.document).mid(0, 5),
              (QStringList{"one", "two, corrected", "between", "three", "four"}));
    EXPECT_EQ(caret.block().text(), "four");
    EXPECT_EQ(caret.positionInBlock(), 2) << "the caret stays where it was";
    EXPECT_LT(touched, 120) << "of more than a thousand letters";
    EXPECT_TRUE(QTextCursor(shown.document.findBlockByNumber(2)).charFormat().fontItalic() ||
                shown.document.findBlockByNumber(2).begin().fragment().charFormat().fontItalic());
    EXPECT_FALSE(shown.document.isUndoAvailable());
}

TEST(TranscriptDocument, saysTheSameAsItsRowsWhateverComes) {
    std::mt19937 random(5);
    auto list = rows({"a", "b", "c", "d", "e", "f"});
    Shown shown(list);
    for (int turn = 0; turn < 600; ++turn) {
        const auto at = list.empty() ? 0 : random() % list.size();
        switch (random() % 6) {
            case 0:
                list.insert(list.begin() + at,
                            row(QString("new %1").arg(turn), random() % 3 == 0, random() % 2));
                break;
            case 1:
                if (!list.empty()) list.erase(list.begin() + at);
                break;
            case 2:
                if (!list.empty()) list[at].text = QString("changed %1").arg(turn);
                break;
            case 3:
                if (!list.empty()) list[at].quiet = list[at].quiet > 0 ? 0 : 3;
                break;
            case 4:
                std::shuffle(list.begin(), list.begin() + at, random);
                break;
            default:
                for (int more = 0; more < 4; ++more) list.push_back(row(QString("end %1").arg(turn)));
        }
        shown.text.assign(list);
        QStringList wanted;
        for (const auto& one : list) wanted.append(one.text);
        if (wanted.isEmpty()) wanted.append("");
        ASSERT_EQ(blocks(shown.document), wanted) << turn;
        for (std::size_t row = 0; row < list.size(); ++row)
            ASSERT_EQ(shown.document.findBlockByNumber(static_cast<int>(row)).blockFormat().topMargin() > 0,
                      list[row].quiet > 0)
                << turn << " row " << row;
    }
}

TEST(TranscriptDocument, whatIsTypedIsTakenOnceAndNoChangeElsewhereLosesIt) {
    Shown shown(rows({"one", "two", "three"}));
    shown.type(1, 3, " more");
    EXPECT_EQ(shown.text.typedRow(), 1);
    shown.rows[0].text = "ONE";
    shown.rows.insert(shown.rows.begin() + 1, row("new"));
    shown.text.assign(shown.rows);
    EXPECT_EQ(blocks(shown.document), (QStringList{"ONE", "new", "two more", "three"}));
    ASSERT_EQ(shown.text.typedRow(), 2);
    const auto typed = shown.text.takeTyped();
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->line, shown.rows[2].id);
    EXPECT_EQ(typed->text, "two more");
    EXPECT_FALSE(shown.text.takeTyped());

    // Other rows altogether, with one that is being typed in: it goes on there.
    shown.type(3, 5, "!");
    auto other = rows({"x", "y"});
    other.push_back(shown.rows[3]);
    shown.text.assign(other);
    EXPECT_EQ(blocks(shown.document), (QStringList{"x", "y", "three!"}));
    EXPECT_EQ(shown.text.typedRow(), 2);
    shown.text.giveBack();
    EXPECT_EQ(blocks(shown.document), (QStringList{"x", "y", "three"}));
    EXPECT_EQ(shown.text.typedRow(), -1);
}

TEST(TranscriptDocument, nothingTypedIsNoCorrection) {
    Shown shown(rows({"one", "two"}));
    shown.type(0, 3, "  ");
    EXPECT_FALSE(shown.text.takeTyped());
    EXPECT_EQ(blocks(shown.document), (QStringList{"one", "two"}));
    QTextCursor cursor(shown.document.findBlockByNumber(1));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    EXPECT_FALSE(shown.text.takeTyped());
    EXPECT_EQ(blocks(shown.document), (QStringList{"one", "two"}));
}

TEST(TranscriptDocument, linesThatWereJoinedOrBrokenComeBack) {
    Shown shown(rows({"one", "two", "three"}));
    shown.type(0, 3, "\nhalf");
    QCoreApplication::processEvents();
    EXPECT_EQ(blocks(shown.document), (QStringList{"one", "two", "three"}));
    QTextCursor cursor(&shown.document);
    cursor.setPosition(2);
    cursor.setPosition(6, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    QCoreApplication::processEvents();
    EXPECT_EQ(blocks(shown.document), (QStringList{"one", "two", "three"}));
}
