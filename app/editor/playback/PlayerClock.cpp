#include "app/editor/playback/PlayerClock.h"

#include <chrono>

namespace murbo {

double PlayerClock::computer() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

double PlayerClock::rate() const {
    const std::lock_guard hold(lock);
    return speed;
}

double PlayerClock::place() const {
    const std::lock_guard hold(lock);
    return speed == 0 ? anchor : anchor + speed * clock();
}

void PlayerClock::stand(double place) {
    const std::lock_guard hold(lock);
    anchor = place;
    speed = 0;
}

void PlayerClock::run(double place, double rate, Now now) {
    const std::lock_guard hold(lock);
    clock = std::move(now);
    anchor = place;
    speed = rate;
}

}
