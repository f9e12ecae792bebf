#pragma once

#include <QObject>

namespace murbo {

class Editor;
class ExportQueue;

/// What the export sheet shows and asks for: the form, and the order that comes of it.
class ExportSheet : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString fileName MEMBER fileName NOTIFY changed)
    Q_PROPERTY(QString folder MEMBER folder NOTIFY changed)
    Q_PROPERTY(int rate MEMBER rate NOTIFY changed)
    Q_PROPERTY(bool subtitles MEMBER subtitles NOTIFY changed)
    Q_PROPERTY(bool mutedRows MEMBER mutedRows NOTIFY changed)
    Q_PROPERTY(bool mutedBlocks MEMBER mutedBlocks NOTIFY changed)
    Q_PROPERTY(QString facts READ facts NOTIFY changed)
    Q_PROPERTY(QString mutedWords READ mutedWords NOTIFY changed)
    Q_PROPERTY(bool replaces READ replaces NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(bool underWay READ underWay NOTIFY changed)
    Q_PROPERTY(QStringList videos READ videos NOTIFY changed)
    Q_PROPERTY(int video READ video NOTIFY changed)

public:
    ExportSheet(Editor& editor, ExportQueue& exports, QObject* parent = nullptr);

    QString facts() const;      ///< "1080 × 1920 · 60 fps · 0:42"
    QString mutedWords() const; ///< "Rows muted on the timeline's headers: Music"; empty where none is
    bool replaces() const;      ///< a file of that name is there
    QString problem() const;    ///< why this can't be exported; empty where it can

    bool underWay() const;      ///< the open video is being made, or waits for it
    QStringList videos() const; ///< all there are to choose from, "V2 · Falls into the cave"
    int video() const;          ///< the row of the open one

    /// Opens another video, and fills the form for it.
    Q_INVOKABLE void choose(int video);
    /// Fills the form for the open video, from what was chosen last.
    Q_INVOKABLE void fill();
    Q_INVOKABLE void start();
    /// Plays a movie in the system's own player.
    Q_INVOKABLE void play(const QString& path);
    /// Puts a movie's path onto the clipboard.
    Q_INVOKABLE void copy(const QString& path);

signals:
    void changed();

private:
    QString path() const;
    QString freeName(const QString& name) const;

    Editor& editor;
    ExportQueue& exports;
    QString fileName;
    QString folder;
    int rate = 0; ///< frames a second; 0 as the footage
    bool subtitles = false;
    bool mutedRows = false;
    bool mutedBlocks = false;
};

}
