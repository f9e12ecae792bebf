#pragma once

#include "app/desktop/inspector/BookShelf.h"
#include "app/desktop/inspector/FileFacts.h"
#include "app/desktop/inspector/InspectorRow.h"
#include "app/desktop/models/Rows.h"
#include "app/editor/Pick.h"
#include "core/model/Project.h"

#include <QObject>
#include <memory>

namespace murbo {

class Editor;

/// What the Inspector tab shows: what is picked on the side that was touched last, as rows that say and set
/// it. A finished change is one step of undo; so is a drag, however many pieces it has.
class Inspection : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString kind READ kind NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)

public:
    explicit Inspection(Editor& editor);
    ~Inspection() override;

    /// "video", "cut", "shot", "overlay", "sound", "music", "caption", "several", "clip", "clips", "source",
    /// or "nothing".
    QString kind() const { return shownKind; }
    QString title() const { return shownTitle; }
    QString note() const { return shownNote; } ///< beside the title: when, of how many
    int count() const;                         ///< of things picked
    QAbstractItemModel* rows() { return &shown; }
    /// The row of that id; null where there is none.
    const InspectorRow* row(const QString& id) const;

    /// Sets what a row says. A row that has gone, and a value that it has already, change nothing.
    Q_INVOKABLE void set(const QString& row, const QVariant& value);
    /// Puts a row back to its standard.
    Q_INVOKABLE void reset(const QString& row) { set(row, QVariant()); }
    /// A piece of a drag: the picture follows, and it becomes a step when the drag is released or rests.
    Q_INVOKABLE void drag(const QString& row, const QVariant& value);
    Q_INVOKABLE void release();
    /// Lets go of an open drag: what was dragged is as it was.
    Q_INVOKABLE void cancel();
    /// Does what a row's button says.
    Q_INVOKABLE void press(const QString& row);
    Q_INVOKABLE bool has(const QString& id) const { return row(id) != nullptr; }
    /// Has a file chosen for a row; and takes the one that was, into the project.
    Q_INVOKABLE void askFile(const QString& row);
    Q_INVOKABLE void takeFile(const QString& row, const QString& path);
    /// Fills a row in with the stretch that is marked in the source viewer.
    Q_INVOKABLE void takeRange(const QString& row);
    /// Takes away all that is picked on the timeline.
    Q_INVOKABLE void removePicked();

signals:
    void changed();
    /// A file of a kind, "media" or "sounds", is to be chosen for a row.
    void fileAsked(const QString& row, const QString& kind, const QString& title);
    void findAsked(); ///< a folder to find missing files in is to be chosen

private:
    struct InspectedThings;

    void refresh();
    void describe();
    InspectorRowList made();
    const std::vector<Pick>& picked() const;
    void replaceSound(const QString& place, double length);
    void updateBook(const Pick& pick, const std::string& book);
    bool setByCommand(const std::string& row, const QVariant& value);
    bool setOnVideo(const std::string& row, const QVariant& value);
    bool setOnClips(const std::string& row, const QVariant& value);
    void setEnd(UUID cut, const std::string& row, double to);
    bool setLayout(const std::string& layout);
    void write(Project& project, const std::string& row, const QVariant& value);
    std::string stepName(const InspectorRow& row, const QVariant& value) const;

    Editor& editor;
    BookShelf shelf;
    FileFacts facts;
    std::unique_ptr<InspectedThings> subject;
    Rows<InspectorRow> shown;
    std::string dragName; ///< of the open drag
    QString shownKind;
    QString shownTitle;
    QString shownNote;
};

}
