#pragma once

#include <functional>

namespace murbo {

/// Where a player stands: a place in seconds that runs on at a rate, by any clock that gives seconds. Plain
/// and unguarded: whoever shares one holds a lock around it.
class PlayerClock {
public:
    using Now = std::function<double()>;

    /// The computer's own clock, in seconds; it never goes back.
    static double computer();

    explicit PlayerClock(Now now = computer) : clock(std::move(now)) {}

    double rate() const { return speed; } ///< seconds a second, signed; 0 stands still
    double place() const;

    /// Goes to a place; the rate stays.
    void set(double place);
    /// Runs on at another rate from the place where it is.
    void setRate(double rate);
    /// Lets another clock lead from here on.
    void follow(Now now);

private:
    Now clock;
    double speed = 0;
    double anchor = 0; ///< the place at `since`
    double since = 0;  ///< on the clock that leads
};

}
