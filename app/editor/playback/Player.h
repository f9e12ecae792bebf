#pragma once

#include "app/editor/playback/PicturePlayer.h"
#include "app/editor/playback/PlayerClock.h"
#include "app/editor/playback/PlayerItem.h"
#include "app/editor/playback/SoundPlayer.h"

#include <memory>
#include <optional>

namespace murbo {

/// Plays one item at a time, pictures and sound. One thread uses it: the one that gives the orders. None of
/// them waits for files or pictures.
class Player {
public:
    /// `now` leads where there is no sound to lead; without `makeOutput` there is none.
    explicit Player(PlayerClock::Now now = PlayerClock::computer, SoundPlayer::MakeOutput makeOutput = {});

    /// See PicturePlayer.
    void setSink(std::shared_ptr<FrameSink> sink, int width, int height);
    /// A factor from 0 to 1.
    void setVolume(double factor) { sound.setVolume(factor); }

    /// Takes an item in the place of the last one and stands still at a place of it, in seconds.
    void load(PlayerItem item, double at);
    void unload();
    const std::optional<PlayerItem>& item() const { return current; }

    /// Draws with another plan from here on; all else goes on.
    void refresh(Plan plan);
    /// Takes another item's plan and sound; the pictures go on. The item must have the same pictures.
    void remix(PlayerItem item);

    double length() const; ///< seconds
    double place() const;  ///< seconds, from 0 to the length
    double rate() const { return clock.rate(); }

    /// Runs on from where it is. Seconds a second, signed. Without an item it stands still.
    void run(double rate);
    /// Stands still at a place, on the picture that is on there.
    void stand(double place);
    /// Goes to a place, and runs on from there if it runs.
    void seek(double place);
    /// Stands at a place for a hand that moves on: the nearest picture at hand comes first, the right one
    /// after it.
    void skim(double place);

    PicturePlayer::Counts counts() const { return pictures.counts(); }

private:
    void runFrom(double place, double rate);
    double inside(double place) const;

    PlayerClock::Now computer;
    bool hasSound;
    std::optional<PlayerItem> current;
    PlayerClock clock;
    SoundPlayer sound;
    PicturePlayer pictures;
};

}
