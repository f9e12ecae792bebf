#include "app/editor/playback/Player.h"

#include <algorithm>

namespace murbo {

Player::Player(PlayerClock::Now now) : clock(std::move(now)) {}

void Player::load(PlayerItem item, double at) {
    current = std::move(item);
    clock.setRate(0);
    seek(at);
}

void Player::unload() {
    current.reset();
    clock.setRate(0);
    clock.set(0);
}

void Player::refresh(Plan plan) {
    if (current) current->composition.box->replace(std::move(plan));
}

void Player::remix(PlayerItem item) {
    if (!current) return;
    current->composition.box->replace(*item.composition.box->plan());
    current->sound = std::move(item.sound);
}

double Player::length() const {
    return current ? current->composition.length() : 0;
}

double Player::place() const {
    return std::clamp(clock.place(), 0.0, length());
}

void Player::setRate(double rate) {
    if (current) clock.setRate(rate);
}

void Player::seek(double place) {
    clock.set(std::clamp(place, 0.0, length()));
}

void Player::skim(double place) {
    seek(place);
}

}
