#pragma once

#include <functional>
#include <mutex>

namespace murbo {

/// Where a player stands: a place in seconds that runs on at a rate, by any clock that gives seconds. Any
/// thread may use it.
class PlayerClock {
public:
    using Now = std::function<double()>;

    /// The computer's own clock, in seconds; it never goes back.
    static double computer();

    explicit PlayerClock(Now now = computer) : clock(std::move(now)) {}

    double rate() const; ///< seconds a second, signed; 0 stands still
    double place() const;

    /// Stands still at a place.
    void stand(double place);
    /// Runs on from a place at a rate, led by a clock that stands at 0 when the place is heard or shown: it
    /// may run already.
    void run(double place, double rate, Now now);

private:
    mutable std::mutex lock;
    Now clock;
    double speed = 0;
    double anchor = 0; ///< the place at 0 of the clock that leads
};

}
