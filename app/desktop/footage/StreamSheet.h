#pragma once

#include "app/editor/Background.h"
#include "core/intake/MeasuredFile.h"
#include "core/intake/Sources.h"

#include <QObject>
#include <QVariantList>
#include <optional>

namespace murbo {

class Editor;

/// What the sheet for adding a stream shows and does: a recording, its markers, and the clips that come of
/// them, worked out as the adding itself does.
class StreamSheet : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString recording READ recording NOTIFY changed)
    Q_PROPERTY(QString recordingPath READ recordingPath NOTIFY changed)
    Q_PROPERTY(QVariantList stills READ stills NOTIFY recordingChanged)
    Q_PROPERTY(QString facts READ facts NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString markersWords READ markersWords NOTIFY changed)
    Q_PROPERTY(QString clipWords READ clipWords NOTIFY changed)
    Q_PROPERTY(QVariantList clips READ clips NOTIFY changed)
    Q_PROPERTY(QVariantList marks READ marks NOTIFY changed)
    Q_PROPERTY(QString typed READ typed WRITE setTyped NOTIFY changed)
    Q_PROPERTY(QString note MEMBER note NOTIFY changed)
    Q_PROPERTY(bool transcribe MEMBER transcribe NOTIFY changed)
    Q_PROPERTY(bool ready READ ready NOTIFY changed)
    Q_PROPERTY(QString whisper READ whisper CONSTANT)

public:
    explicit StreamSheet(Editor& editor, QObject* parent = nullptr);
    ~StreamSheet() override;

    QString recording() const; ///< its file's name
    QString recordingPath() const { return QString::fromStdString(path.string()); }
    QVariantList stills() const;  ///< addresses of pictures of it, in even steps
    QString facts() const;        ///< its length and what is worth knowing of it
    QString problem() const;      ///< why it can't come in, or what is wrong with the markers
    QString markersWords() const; ///< "9 markers from 2026-11-17.csv"
    QString clipWords() const;    ///< "5 clips, C12 to C16"
    QVariantList clips() const { return shownClips; } ///< tag, words, from, to: shares of the recording
    QVariantList marks() const { return shownMarks; } ///< shares of the recording
    QString typed() const { return typedTimes; }
    bool ready() const { return file.has_value(); }
    QString whisper() const; ///< what transcribing lacks, in words; empty where all is there

    Q_INVOKABLE void clear();
    /// Takes a recording, and the markers beside it, or a file of markers. Others are turned away in words.
    Q_INVOKABLE void take(const QStringList& paths);
    /// Times as people type them, in the place of a file: "1:23 4:05", or one a line.
    void setTyped(const QString& times);
    Q_INVOKABLE void add();

    /// Whether files that are handed over are a stream: one recording with markers given or beside it.
    static bool isStream(const QStringList& paths);

signals:
    void changed();
    void recordingChanged();

private:
    void takeRecording(const std::filesystem::path& path);
    void takeMarkers(const std::filesystem::path& path);
    void workOut();
    Sources::StreamNotes notes() const;

    Editor& editor;
    std::filesystem::path path;
    std::optional<MeasuredFile> file;
    QString about;
    QString fault;
    std::optional<std::string> markersName;
    std::optional<std::string> markers;
    std::size_t markCount = 0;
    QString typedTimes;
    QString note;
    bool transcribe = true;
    QVariantList shownClips;
    QVariantList shownMarks;
    int turn = 0;
    Background background;
};

}
