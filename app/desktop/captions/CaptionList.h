#pragma once

#include "app/desktop/captions/CaptionRow.h"
#include "app/desktop/models/Rows.h"
#include "app/editor/Editor.h"
#include "core/render/plan/CaptionCue.h"

#include <QVariantList>
#include <vector>

namespace murbo {

/// The captions of the open video as a list: what is picked in it is picked on the timeline, and the other
/// way round. It is kept up only while somebody looks.
class CaptionList : public Rows<CaptionRow> {
    Q_OBJECT
    Q_PROPERTY(bool watched READ isWatched WRITE setWatched NOTIFY watchedChanged)
    Q_PROPERTY(int pickedRow READ pickedRow NOTIFY pickedChanged)
    Q_PROPERTY(QVariantList pickedWords READ pickedWords NOTIFY pickedChanged)
    Q_PROPERTY(bool canJoin READ canJoin NOTIFY pickedChanged)
    Q_PROPERTY(bool canReset READ canReset NOTIFY pickedChanged)

public:
    explicit CaptionList(Editor& session);

    bool isWatched() const { return watched; }
    void setWatched(bool on);
    const std::vector<CaptionCue>& cues() const { return shown; }
    int pickedRow() const; ///< -1 for none
    /// The words of the picked caption's line: text, stressed, and whether it begins a piece.
    QVariantList pickedWords() const;
    const CaptionCue* pickedCue() const; ///< or null
    bool canJoin() const;
    bool canReset() const;

    /// Picks a caption and brings the playhead to where it stands complete.
    Q_INVOKABLE void pick(int row);
    Q_INVOKABLE void toggleBig(int row);
    Q_INVOKABLE void toggleHidden(int row);
    /// What is typed when that caption is edited.
    Q_INVOKABLE QString textToEdit(int row) const;
    Q_INVOKABLE void retext(int row, const QString& text);
    /// Of the picked caption's line.
    Q_INVOKABLE void toggleBreak(int word);
    Q_INVOKABLE void toggleStress(int word);
    Q_INVOKABLE void join();
    Q_INVOKABLE void resetTiming();

signals:
    void watchedChanged();
    void pickedChanged();

private:
    void refresh();
    void assignRows();
    void followPlayhead();
    int rowAt(double time) const;
    Pick pickOf(const CaptionCue& cue) const;
    bool has(int row) const { return row >= 0 && row < static_cast<int>(shown.size()); }

    Editor& session;
    bool watched = false;
    std::vector<CaptionCue> shown;
    int current = -1;
};

}
