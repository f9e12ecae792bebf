#pragma once

#include "app/editor/playback/PlayerClock.h"
#include "app/editor/playback/PlayerItem.h"

#include <optional>

namespace murbo {

/// Plays one item at a time. One thread uses it: the one that gives the orders.
class Player {
public:
    explicit Player(PlayerClock::Now now = PlayerClock::computer);

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

    /// Seconds a second, signed; 0 stands still. Without an item it stays 0.
    void setRate(double rate);
    /// Goes to a place, and the picture to the one that is on there.
    void seek(double place);
    /// The same for a hand that moves on: the nearest picture at hand comes first, the right one after it.
    void skim(double place);

private:
    std::optional<PlayerItem> current;
    PlayerClock clock;
};

}
