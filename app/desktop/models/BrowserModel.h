#pragma once

#include "app/desktop/models/BrowserRow.h"
#include "app/desktop/models/Rows.h"

namespace murbo {

class Editor;

/// What the browser lists: what the sidebar has picked, narrowed by words.
class BrowserModel : public Rows<BrowserRow> {
    Q_OBJECT
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY wordsChanged)
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY emptyWordsChanged)
    Q_PROPERTY(int count READ count NOTIFY emptyWordsChanged)

public:
    explicit BrowserModel(Editor& editor, QObject* parent = nullptr);

    QString words() const { return search; }
    void setWords(const QString& words);
    /// What to say where nothing is listed.
    QString emptyWords() const;
    int count() const { return rowCount(); }

    /// Picks and holds a row; with Ctrl it is added or taken away, with Shift all from the last one on.
    Q_INVOKABLE void pick(int row, int modifiers);
    /// What a double click does: plays what it holds, or opens the video.
    Q_INVOKABLE void activate(int row);
    /// Transcribes it once more, where that failed.
    Q_INVOKABLE void tryAgain(int row);
    /// Its menu is being asked for: what the menu says is about that row.
    Q_INVOKABLE void askAbout(int row);
    /// Brings what was asked about into its viewer; with nothing asked about, what is held.
    void holdAsked();
    /// The clip that was asked about, else the held one.
    std::optional<UUID> askedClip() const;
    Q_INVOKABLE int heldRow() const;
    Q_INVOKABLE QString tagOf(int row) const;
    Q_INVOKABLE QString kindOf(int row) const;

signals:
    void wordsChanged();
    void emptyWordsChanged();

private:
    void refresh();
    void hold(const BrowserRow& row);

    Editor& editor;
    QString search;
    std::string asked; ///< the id of the row clicked or asked about last; empty once another clip is held
};

}
