#pragma once

#include "app/desktop/transcript/CorrectionOffer.h"
#include "app/desktop/transcript/SpokenWord.h"
#include "app/desktop/transcript/TranscriptDocument.h"
#include "app/desktop/transcript/TranscriptRows.h"
#include "app/editor/Editor.h"

#include <QObject>
#include <QStringList>
#include <memory>
#include <optional>
#include <utility>

namespace murbo {

/// The transcript as its tab shows it: whose words they are, what the caret and a selection do to the
/// session, and where the player is in them. What is typed becomes a step once the caret leaves its line.
class TranscriptPage : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString title READ title NOTIFY shownChanged)
    Q_PROPERTY(QStringList scopes READ scopes NOTIFY shownChanged)
    Q_PROPERTY(int scope READ scope NOTIFY shownChanged)
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY shownChanged)
    Q_PROPERTY(bool canTranscribe READ canTranscribe NOTIFY shownChanged)
    Q_PROPERTY(QString addWords READ addWords NOTIFY rangeChanged)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY rangeChanged)
    Q_PROPERTY(bool canNote READ canNote NOTIFY rangeChanged)
    Q_PROPERTY(QString hitWords READ hitWords NOTIFY hitsChanged)
    Q_PROPERTY(QObject* offer READ offer CONSTANT)

public:
    explicit TranscriptPage(Editor& session);
    ~TranscriptPage() override;

    QString title() const;
    QStringList scopes() const; ///< whose words can be chosen: what is held, the open video
    int scope() const;          ///< which of them is shown
    QString emptyWords() const; ///< in place of words, where there are none
    bool canTranscribe() const;
    bool isEditable() const; ///< whether what is typed now corrects a line
    QString addWords() const;
    bool canAdd() const;
    bool canNote() const;
    QString hitWords() const; ///< "2 of 14"
    CorrectionOffer* offer() { return &elsewhere; }

    const TranscriptDocument& document() const { return text; }
    TranscriptDocument& document() { return text; }
    /// The rows that the marked range holds, first and last; nothing for none.
    struct RowRange {
        int first = 0;
        int last = -1;
        bool operator==(const RowRange&) const = default;
    };
    std::optional<RowRange> marked() const;
    int spokenRow() const { return spoken; } ///< where the player is; -1 for nowhere
    SpokenWord::SpokenRange spokenWord() const { return word; }
    int caretRow() const { return caret.row; }
    const std::vector<int>& hits() const { return found; }

    /// Carries out what an action of the window asks of it.
    void carryOut(const QString& verb);

    Q_INVOKABLE void setScope(int scope);
    /// The text area to show it in.
    Q_INVOKABLE void attach(QObject* area);
    /// The caret or the selection moved.
    Q_INVOKABLE void caretMoved(int position, int from, int to);
    /// The mouse was let go: a caret that stayed where it was is meant all the same.
    Q_INVOKABLE void pressed(int position, int from, int to);
    /// Selects rows as a press beside them does; `more` goes on from where the last one began.
    Q_INVOKABLE void pressRow(int row, bool more);
    /// Makes a step of what was typed.
    Q_INVOKABLE void commit();
    /// Gives back what was typed. Whether there was any.
    Q_INVOKABLE bool giveBack();
    Q_INVOKABLE void addLines();
    Q_INVOKABLE void addNote(const QString& words);
    Q_INVOKABLE void transcribe();
    /// Looks for words; the first hit after the caret is gone to.
    Q_INVOKABLE void find(const QString& words);
    Q_INVOKABLE void findNext(bool back);
    /// What an action asked of the tab before it was there: "search", "note", "copy", else nothing.
    Q_INVOKABLE QString takeWish() { return std::exchange(wish, {}); }

signals:
    void shownChanged();
    void caretChanged();
    void rangeChanged();
    void hitsChanged();
    /// The row or word that is spoken changed; `playing` says to keep it in view.
    void spokenChanged();
    /// What lies beside the words is to be drawn anew.
    void looksChanged();
    /// The tab is to be brought up.
    void tabWanted();
    /// A field of the tab is wanted: `takeWish` says which.
    void wished();
    /// The text area is to put its caret there, or to select from a place to another.
    void caretWanted(int position);
    void selectionWanted(int from, int to);

private:
    struct Caret {
        int row = -1;
        int first = -1; ///< rows that are selected
        int last = -1;
        int position = -1; ///< in the document, as are the ends of the selection
        int from = -1;
        int to = -1;
    };

    bool showsVideo() const;
    Playback& player() const;
    TranscriptRows::SpokenSubject subject() const;
    void refresh();
    void followInspecting();
    void followPlayer();
    void seekTo(int row, int position);
    void pickRows();
    void refind();
    void goTo(int row);
    void acceptLetters();

    Editor& session;
    TranscriptDocument text;
    CorrectionOffer elsewhere;
    TranscriptRows::Basis basis;
    OrderedTranscripts orderedTranscripts;
    Caret caret;
    int anchorRow = -1;   ///< of a press beside the rows
    int knownChanges = 0; ///< of the text, when the caret was last heard of
    bool placing = false; ///< the caret is moved by this object
    bool wantsVideo = false;
    int spoken = -1;
    SpokenWord::SpokenRange word;
    QString wish;
    QString sought;
    std::vector<int> found;
    int hit = -1;
    QPointer<QObject> area;
    std::unique_ptr<QObject> typing;
};

}
