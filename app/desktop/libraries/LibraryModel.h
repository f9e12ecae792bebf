#pragma once

#include "app/desktop/libraries/BookPictures.h"
#include "app/desktop/libraries/LibraryRow.h"
#include "app/desktop/libraries/SoundPreview.h"
#include "app/desktop/models/Rows.h"
#include "app/editor/Background.h"

#include <stop_token>

namespace murbo {

class MediaArrivals;

/// The page of the library that the sidebar has picked: what it lists, how that looks and sounds, and how it
/// comes into the video.
class LibraryModel : public Rows<LibraryRow> {
    Q_OBJECT
    Q_PROPERTY(bool shown READ shown NOTIFY pageChanged)
    Q_PROPERTY(bool ofSounds READ ofSounds NOTIFY pageChanged)
    Q_PROPERTY(QString folder READ folder NOTIFY pageChanged)
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY listed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY listed)
    Q_PROPERTY(QString playing READ playing NOTIFY playingChanged)
    Q_PROPERTY(QObject* pictures READ pictures CONSTANT)

public:
    /// `arrivals` brings its sounds into the video.
    LibraryModel(Editor& editor, MediaArrivals& arrivals, SoundPlayer::MakeOutput output,
                 QObject* parent = nullptr);
    ~LibraryModel() override;

    bool shown() const; ///< the sidebar has a page of the library picked
    bool ofSounds() const;
    QString folder() const;     ///< where what it lists lies
    QString emptyWords() const; ///< what to say where nothing is listed
    QString words() const { return search; }
    void setWords(const QString& words);
    QString playing() const { return preview.playing(); }
    QObject* pictures() { return &bookPictures; }
    bool isBusy() const { return reading || bookPictures.isBusy(); }
    const Book* book(const QString& id) const; ///< of the listed ones; or null

    /// Puts a thing into the open video: at the playhead, or at a time of the video's where it is dropped.
    Q_INVOKABLE bool add(int row);
    Q_INVOKABLE bool addAt(int row, double time);
    /// Lets a sound be heard; the one that is heard falls silent.
    Q_INVOKABLE void play(int row);
    Q_INVOKABLE void stop() { preview.stop(); }
    /// Shows the folder, or that of a thing; a folder that is not there is made.
    Q_INVOKABLE void openFolder(int row = -1);
    /// Takes playbooks into the owner's library, and turns to the page of the last that came. What is wrong
    /// with one is said.
    Q_INVOKABLE void bringIn(const QStringList& paths);
    /// Reads the folders anew.
    Q_INVOKABLE void reload();

signals:
    void pageChanged();
    void listed();
    void playingChanged();

private:
    void turnPage();
    void show();
    void measure();
    bool put(int row, std::optional<double> time);

    Editor& editor;
    MediaArrivals& arrivals;
    BookPictures bookPictures;
    SoundPreview preview;
    std::vector<LibraryRow> all;
    QString search;
    int turn = 0;
    bool reading = false;
    std::stop_source stopping; ///< of what is measured
    Background background;
};

}
