#include "app/editor/playback/Player.h"

#include <algorithm>
#include <cmath>

namespace murbo {

Player::Player(PlayerClock::Now now, SoundPlayer::MakeOutput makeOutput)
    : computer(std::move(now)),
      hasSound(makeOutput != nullptr),
      sound(std::move(makeOutput)),
      pictures(clock) {}

void Player::setSink(std::shared_ptr<FrameSink> sink, int width, int height) {
    pictures.setSink(std::move(sink), width, height);
}

void Player::load(PlayerItem item, double at) {
    sound.load(item.sound, item.composition.length());
    current = std::move(item);
    clock.stand(inside(at));
    pictures.load(std::make_shared<const VideoComposition>(current->composition));
}

void Player::unload() {
    sound.stop();
    current.reset();
    clock.stand(0);
    pictures.load(nullptr);
}

void Player::refresh(Plan plan) {
    if (!current) return;
    current->composition.box->replace(std::move(plan));
    pictures.redraw();
}

void Player::remix(PlayerItem item) {
    if (!current) return;
    sound.remix(item.sound);
    current->sound = std::move(item.sound);
    refresh(*item.composition.box->plan());
}

double Player::length() const {
    return current ? current->composition.length() : 0;
}

double Player::inside(double place) const {
    return std::clamp(place, 0.0, length());
}

double Player::place() const {
    return inside(clock.place());
}

void Player::run(double rate) {
    if (current) runFrom(place(), rate);
    if (current) pictures.run(false);
}

/// Where sound can be heard its clock leads: an ear notices a slip before an eye does.
void Player::runFrom(double place, double rate) {
    const bool audible = hasSound && std::abs(rate) <= SoundFeed::fastest;
    if (!audible) sound.stop();
    if (audible) return clock.run(place, rate, sound.start(place, rate));
    clock.run(place, rate, [now = computer, begun = computer()] { return now() - begun; });
}

void Player::stand(double place) {
    sound.stop();
    clock.stand(inside(place));
    pictures.stand(false);
}

void Player::seek(double place) {
    if (rate() == 0) return stand(place);
    runFrom(inside(place), rate());
    pictures.run(true);
}

void Player::skim(double place) {
    sound.stop();
    clock.stand(inside(place));
    pictures.stand(true);
}

}
