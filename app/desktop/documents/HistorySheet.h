#pragma once

#include <QObject>
#include <QVariantList>

namespace murbo {

class Editor;

/// The steps that can be undone and redone, as a list to go to any of. Main thread only.
class HistorySheet : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList steps READ steps NOTIFY changed)
    Q_PROPERTY(int now READ now NOTIFY changed)

public:
    explicit HistorySheet(Editor& editor, QObject* parent = nullptr);

    /// name, undone, byModel; the oldest first, before it how the project stood then.
    QVariantList steps() const;
    int now() const; ///< the row of the step that was made last
    /// Undoes or redoes until that step is the last that was made.
    Q_INVOKABLE void go(int row);

signals:
    void changed();

private:
    Editor& editor;
};

}
