#pragma once

#include <QObject>
#include <QVariantList>

namespace murbo {

class Editor;

/// The panel at the right of a window: its tabs, which of them is up, and whether it is shown. Which sections
/// of it are folded is kept for all windows, by the key of the section.
class InspectorPanel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList tabs READ tabs CONSTANT)
    Q_PROPERTY(int tab READ tab NOTIFY tabChanged)
    Q_PROPERTY(bool shown READ shown NOTIFY shownChanged)

public:
    explicit InspectorPanel(Editor& editor);

    /// id, title and the file of each tab, in the order shown.
    QVariantList tabs() const;
    /// The one that is up, as a place in the list; the first where the session's is none of these.
    int tab() const;
    bool shown() const { return isShown; }

    /// Brings a tab up, and the panel with it.
    Q_INVOKABLE void choose(int tab);
    Q_INVOKABLE void toggle();
    /// What a verb of the window asks of it: "inspector", "tab.inspector"; nothing of others.
    void carryOut(const QString& verb);

    /// Whether a section is open: "folded.Levels" says that it is folded, "captionStyles.open" that it is
    /// open.
    Q_INVOKABLE bool isOpen(const QString& key) const;
    Q_INVOKABLE void setOpen(const QString& key, bool open);

signals:
    void tabChanged();
    void shownChanged();

private:
    void show(bool shown);
    void keep(const QString& key, bool value);

    Editor& editor;
    bool isShown;
};

}
