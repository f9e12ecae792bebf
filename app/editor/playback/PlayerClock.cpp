#include "app/editor/playback/PlayerClock.h"

#include <chrono>

namespace murbo {

double PlayerClock::computer() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

double PlayerClock::place() const {
    return speed == 0 ? anchor : anchor + speed * (clock() - since);
}

void PlayerClock::set(double place) {
    anchor = place;
    since = clock();
}

void PlayerClock::setRate(double rate) {
    set(place());
    speed = rate;
}

void PlayerClock::follow(Now now) {
    anchor = place();
    clock = std::move(now);
    since = clock();
}

}
