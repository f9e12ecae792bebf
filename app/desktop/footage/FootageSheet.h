#pragma once

#include "app/desktop/footage/FootageModel.h"
#include "app/editor/Background.h"

#include <QObject>
#include <QStringList>
#include <stop_token>

namespace murbo {

class Editor;

/// What the sheet for adding footage shows and does: the files that were handed over, what each of them is,
/// and what is to be done with them. They are looked at on a thread, however many they are.
class FootageSheet : public QObject {
    Q_OBJECT
    Q_PROPERTY(murbo::FootageModel* files READ files CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int readable READ readable NOTIFY changed)
    Q_PROPERTY(bool reading READ reading NOTIFY changed)
    Q_PROPERTY(QString words READ words NOTIFY changed)
    Q_PROPERTY(QString only READ only NOTIFY changed)
    Q_PROPERTY(QString group MEMBER group NOTIFY changed)
    Q_PROPERTY(bool transcribe MEMBER transcribe NOTIFY changed)
    Q_PROPERTY(bool describe MEMBER describe NOTIFY changed)
    Q_PROPERTY(QString whisper READ whisper CONSTANT)

public:
    explicit FootageSheet(Editor& editor, QObject* parent = nullptr);
    ~FootageSheet() override;

    FootageModel* files() { return &model; }
    int count() const { return model.rowCount(); }
    int readable() const; ///< how many of them can come in
    bool reading() const { return busy; }
    QString words() const;   ///< "3 files, 1:02:10 · 1 can't be read"
    QString only() const;    ///< the path of the one file there is, where there is one
    QString whisper() const; ///< what transcribing lacks, in words; empty where all is there

    /// Forgets the files, and sets the ticks as they were last.
    Q_INVOKABLE void clear();
    /// Files and folders on top of those that are listed; a file is listed once.
    Q_INVOKABLE void take(const QStringList& paths);
    /// Ends the search for files; or looking at them, and leaves out those that were not looked at.
    Q_INVOKABLE void halt();
    Q_INVOKABLE void remove(int row);
    /// Adds those that can come in to the project.
    Q_INVOKABLE void add();

signals:
    void changed();

private:
    void list();
    void look();
    void stop();

    Editor& editor;
    FootageModel model;
    QString group;
    bool transcribe = true;
    bool describe = false;
    bool busy = false;
    int turn = 0;                                ///< what comes of an earlier one is dropped
    std::vector<std::filesystem::path> unlisted; ///< handed over, and not among the files yet
    std::stop_source stopping;
    Background background;
};

}
