#pragma once

#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/exports/ExportQueue.h"
#include "app/desktop/models/BrowserModel.h"
#include "app/desktop/models/SidebarModel.h"
#include "app/editor/ProjectDocument.h"

#include <QObject>
#include <QVariant>
#include <functional>
#include <memory>

namespace murbo {

struct Action;

/// One open project as its window's views see it: what they show as properties, what they ask for as calls.
/// Views know no record; whatever depends on the project is decided here.
class OpenProject : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString unsaved READ unsaved NOTIFY unsavedChanged)
    Q_PROPERTY(murbo::Editor* editor READ editorObject CONSTANT)
    Q_PROPERTY(murbo::Playback* player READ player CONSTANT)
    Q_PROPERTY(murbo::Playback* sourcePlayer READ sourcePlayer CONSTANT)
    Q_PROPERTY(murbo::SidebarModel* sidebar READ sidebar CONSTANT)
    Q_PROPERTY(murbo::BrowserModel* browser READ browser CONSTANT)
    Q_PROPERTY(murbo::ExportQueue* exports READ exports CONSTANT)
    Q_PROPERTY(QObject* footage READ footage CONSTANT)
    Q_PROPERTY(QString undoName READ undoName NOTIFY historyChanged)
    Q_PROPERTY(QString redoName READ redoName NOTIFY historyChanged)
    Q_PROPERTY(QString workLabel READ workLabel NOTIFY workChanged)
    Q_PROPERTY(double workProgress READ workProgress NOTIFY workChanged)
    Q_PROPERTY(QString videoTag READ videoTag NOTIFY videoChanged)
    Q_PROPERTY(QString videoTitle READ videoTitle NOTIFY videoChanged)
    Q_PROPERTY(QString aspect READ aspect NOTIFY videoChanged)
    Q_PROPERTY(bool upright READ upright NOTIFY videoChanged)
    Q_PROPERTY(int cuts READ cuts NOTIFY videoChanged)
    Q_PROPERTY(double videoLength READ videoLength NOTIFY videoChanged)
    Q_PROPERTY(QString videoWords READ videoWords NOTIFY videoChanged)
    Q_PROPERTY(QString missingCuts READ missingCuts NOTIFY videoChanged)
    Q_PROPERTY(QString heldTag READ heldTag NOTIFY heldChanged)
    Q_PROPERTY(QString heldTitle READ heldTitle NOTIFY heldChanged)
    Q_PROPERTY(QString rangeWords READ rangeWords NOTIFY heldChanged)
    Q_PROPERTY(bool heldMissing READ heldMissing NOTIFY heldChanged)
    Q_PROPERTY(QString tool READ tool NOTIFY toolChanged)
    Q_PROPERTY(QString focus READ focus NOTIFY focusChanged)
    Q_PROPERTY(bool skimming READ skimming NOTIFY switchesChanged)
    Q_PROPERTY(bool snapping READ snapping NOTIFY switchesChanged)
    Q_PROPERTY(QStringList mutedLanes READ mutedLanes NOTIFY lanesChanged)
    Q_PROPERTY(QStringList soloLanes READ soloLanes NOTIFY lanesChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
    Q_PROPERTY(QString sheet READ sheet WRITE setSheet NOTIFY sheetChanged)
    Q_PROPERTY(bool menuOpen MEMBER menuOpen NOTIFY sheetChanged)

public:
    explicit OpenProject(std::unique_ptr<ProjectDocument> document);
    ~OpenProject() override;

    Editor& editor() { return document->editor(); }
    const Editor& editor() const { return document->editor(); }
    const std::filesystem::path& package() const { return document->package(); }

    QString name() const;
    QString unsaved() const; ///< why what is here is not on disk; empty where it is
    Editor* editorObject() { return &editor(); }
    Playback* player() { return &editor().playback; }
    Playback* sourcePlayer() { return &editor().source; }
    SidebarModel* sidebar() { return &sidebarModel; }
    BrowserModel* browser() { return &browserModel; }
    ExportQueue* exports() { return &exportQueue; }
    QObject* footage() { return &pictures; }
    QString undoName() const;
    QString redoName() const;
    QString workLabel() const;
    double workProgress() const; ///< below 0 where nobody knows
    QString videoTag() const;
    QString videoTitle() const;
    QString aspect() const;
    bool upright() const;
    int cuts() const;
    double videoLength() const;
    QString videoWords() const;  ///< "0:42.30 · 9 cuts"
    QString missingCuts() const; ///< "1 of 9 cuts has no file"; empty where all have
    QString heldTag() const;
    QString heldTitle() const;
    QString rangeWords() const;
    bool heldMissing() const;
    QString tool() const;
    QString focus() const;
    bool skimming() const { return editor().skimming(); }
    bool snapping() const { return editor().snapping(); }
    QStringList mutedLanes() const;
    QStringList soloLanes() const;
    QString problem() const;

    QString sheet() const { return openSheet; }
    void setSheet(const QString& name);
    /// Whether keys are for what lies over the window.
    bool takesAllKeys() const { return !openSheet.isEmpty() || menuOpen; }
    /// What Esc does; false where it is for somebody else.
    bool escape();

    /// Does what an action says; false where there is nothing for it to act on.
    Q_INVOKABLE bool perform(const QString& action);
    bool possible(const Action& action) const;
    /// The lines of a menu: id, title, keys, enabled.
    Q_INVOKABLE QVariantList menu(const QString& name) const;
    Q_INVOKABLE QStringList menuNames() const;
    /// Those whose words hold what is typed, the best first.
    Q_INVOKABLE QVariantList found(const QString& words) const;

    /// The lines of a context menu: over a picked "block", on the empty "timeline", on a "clip" …
    Q_INVOKABLE QVariantList contextMenu(const QString& kind) const;

    /// Whether a lane of sound is heard, in the video and while listening alone.
    Q_INVOKABLE void toggleMute(const QString& lane);
    Q_INVOKABLE void toggleSolo(const QString& lane);
    Q_INVOKABLE void setTool(const QString& name);
    Q_INVOKABLE void setFocus(const QString& viewer);
    Q_INVOKABLE void newVideo(const QString& title, const QString& aspect);
    Q_INVOKABLE void renameVideo(const QString& title);
    /// What is asked before a clip is renamed: title, text, name.
    Q_INVOKABLE QVariantMap askToRename() const;
    Q_INVOKABLE void renameClip(const QString& name);
    Q_INVOKABLE QString lastAspect() const;
    Q_INVOKABLE void findMissing(const QString& folder);
    Q_INVOKABLE void cancelWork() { editor().work.cancel(); }
    Q_INVOKABLE QString clock(double time) const;
    Q_INVOKABLE QString fine(double time) const;
    /// The time that was typed; not a number where it is none.
    Q_INVOKABLE double seconds(const QString& typed) const;

    /// Ends the session: nothing runs on, and all is on disk.
    void close();

signals:
    void unsavedChanged();
    void historyChanged();
    void workChanged();
    void videoChanged();
    void heldChanged();
    void toolChanged();
    void focusChanged();
    void switchesChanged();
    void lanesChanged();
    void problemChanged();
    void sheetChanged();
    /// Something is said to the owner; `undo` says that it can be taken back or given again.
    void toast(const QString& words, const QString& button);
    void beeped();
    /// An action is about to be carried out, or the session to end: what is half typed becomes part of it.
    void aboutToAct();
    /// A verb of the window, which its views carry out.
    void verb(const QString& name);

private:
    std::optional<GeneratedCard> card(const UUID& cut) const;
    bool performVerb(const Action& action);
    void trimToPlayhead(bool start);
    void connectAll();
    void tell(const QString& words);

    std::unique_ptr<ProjectDocument> document;
    FootagePictures pictures;
    SidebarModel sidebarModel;
    BrowserModel browserModel;
    ExportQueue exportQueue;
    QString openSheet;
    bool menuOpen = false;
};

}
