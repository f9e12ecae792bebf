#pragma once

#include <QObject>

namespace murbo {

class OpenProject;

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

public:
    explicit ExportSheet(OpenProject& project, QObject* parent = nullptr);

    QString facts() const;      ///< "1080 × 1920 · 60 fps · 0:42"
    QString mutedWords() const; ///< "Rows muted on the timeline's headers: Music"; empty where none is
    bool replaces() const;      ///< a file of that name is there
    QString problem() const;    ///< why this can't be exported; empty where it can

    /// Fills the form for the open video, from what was chosen last.
    Q_INVOKABLE void fill();
    Q_INVOKABLE void start();
    /// Puts a movie's path onto the clipboard.
    Q_INVOKABLE void copy(const QString& path);

signals:
    void changed();

private:
    QString path() const;

    OpenProject& project;
    QString fileName;
    QString folder;
    int rate = 0; ///< frames a second; 0 as the footage
    bool subtitles = false;
    bool mutedRows = false;
    bool mutedBlocks = false;
};

}
