#pragma once

#include "app/editor/playback/Player.h"
#include "core/model/Stretch.h"

#include <QObject>
#include <QSize>
#include <QTimer>
#include <optional>

namespace murbo {

class PreviewVolume;

/// A player with its transport: what the keys and the timeline do to it. Times are seconds on the item's
/// clock, the video's or the source's. Times that make no sense are brought into the span; without an item
/// it stays at 0. Each property notifies when it has changed and never otherwise. Main thread only.
class Playback : public QObject {
    Q_OBJECT
    Q_PROPERTY(double time READ time NOTIFY timeChanged)
    Q_PROPERTY(double spanStart READ spanStart NOTIFY spanChanged)
    Q_PROPERTY(double spanEnd READ spanEnd NOTIFY spanChanged)
    Q_PROPERTY(double rate READ rate NOTIFY rateChanged)
    Q_PROPERTY(double frameRate READ frameRate NOTIFY frameRateChanged)
    Q_PROPERTY(QSize frameSize READ frameSize NOTIFY frameSizeChanged)
    Q_PROPERTY(QString source READ sourceText NOTIFY sourceChanged)

public:
    static constexpr double fastest = 8; ///< what `shuttle` doubles up to

    /// Without sound, on the computer's clock.
    explicit Playback(QObject* parent = nullptr);
    /// See Player. The level is that of `volume`, which must outlive this.
    Playback(PlayerClock::Now now, SoundPlayer::MakeOutput makeOutput, PreviewVolume* volume,
             QObject* parent);
    ~Playback() override;

    /// Who takes the pictures, drawn for a view of that number of pixels; none draws nothing. See
    /// PicturePlayer.
    void setSink(std::shared_ptr<FrameSink> sink, int width, int height);
    /// How many pictures were shown, and how many came too late.
    PicturePlayer::Counts counts() const { return player.counts(); }

    double time() const { return at; }
    Stretch span() const { return playable; } ///< what may be played
    double spanStart() const { return playable.from; }
    double spanEnd() const { return playable.to; }
    double rate() const { return speed; }       ///< signed; 0 stands still
    double frameRate() const { return frames; } ///< frames a second; 30 without an item
    QSize frameSize() const { return size; }    ///< of the item's own pictures, in pixels; empty without one
    std::optional<UUID> source() const { return shownSource; }
    QString sourceText() const;

    /// Plays another item, standing at a time; what was playing plays on in it. The span is the whole item.
    void load(PlayerItem item, double at);
    /// Takes the item away and stands at a place of one that is about to come: times are taken within `span`
    /// until it is loaded.
    void await(Stretch span, double at);
    /// Takes the item away: time 0, an empty span, no source.
    void unload();
    bool isLoaded() const { return player.item().has_value(); }
    /// Draws with another plan; nothing else changes.
    void refresh(Plan plan);
    /// Takes another item's plan and sound where its pictures are the same, and says whether they were.
    bool remix(PlayerItem item);

    /// Narrows what may be played, within the item: the source player's held clip.
    void setSpan(Stretch span);
    /// Which source the source player shows.
    void setSource(std::optional<UUID> source);

    /// Goes to a time exactly. The end is 0.01 s before the span's, so that there is a picture to show.
    void seek(double to);
    /// Plays, from the start again where it stood at the end; or pauses.
    void playPause();
    /// Plays a stretch and stops at its end.
    void play(Stretch stretch);
    /// Pauses where it stands.
    void pause();
    /// Plays forward or backward, twice as fast each time, up to eight times.
    void shuttle(bool forward);
    /// Pauses and goes on by that number of seconds, backward where negative.
    void step(double by);
    /// Shows a time while a hand moves over it; `time` stays where it was.
    void skim(double to);
    /// Ends a skim: back to where it began, playing on if it was. After a seek it stays there.
    void endScrub();
    /// Where a skim is, while one is open.
    std::optional<double> skimmed() const;

    /// What the player says of its place while it plays; ends the play at the end of what may be played.
    void tick(double place);

signals:
    void timeChanged();
    void spanChanged();
    void rateChanged();
    void frameRateChanged();
    void sourceChanged();
    void frameSizeChanged();

private:
    void setTime(double time);
    void setRate(double rate);
    void setPlayable(Stretch span);
    void setFrames(double rate);
    void followSize();
    void takeAway();
    void closeSkim();
    void takeOver();
    void run(double rate);
    void halt();
    void report();
    double inSpan(double time) const;

    Player player;
    QTimer ticking;
    double at = 0;
    Stretch playable;
    double speed = 0;
    double frames;
    QSize size;
    std::optional<UUID> shownSource;
    bool wasPlaying = false; ///< when a skim began, and at which rate
    double rateBefore = 0;
    double awaitedRate = 0;           ///< with which what is about to come plays on
    std::optional<double> stopAt;     ///< where a stretch that is played ends
    std::optional<double> beforeSkim; ///< where to come back to when a skim ends
    double skimPlace = 0;
};

}
