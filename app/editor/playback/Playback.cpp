#include "app/editor/playback/Playback.h"

#include "app/editor/playback/PreviewVolume.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr double framesWithoutItem = 30;
constexpr double lastPicture = 0.01; // seconds before the end that still show one
constexpr double atEnd = 0.05;       // seconds from the end at which play begins anew
constexpr double stopEarly = 0.02;   // seconds before an end at which play stops: ticks come that seldom
constexpr double noTime = 1e-6;      // seconds
constexpr int tickEvery = 10;        // milliseconds

}

Playback::Playback(QObject* parent) : Playback(PlayerClock::computer, {}, nullptr, parent) {}

Playback::Playback(PlayerClock::Now now, SoundPlayer::MakeOutput makeOutput, PreviewVolume* volume,
                   QObject* parent)
    : QObject(parent), player(std::move(now), std::move(makeOutput)), frames(framesWithoutItem) {
    ticking.setTimerType(Qt::PreciseTimer);
    ticking.setInterval(tickEvery);
    connect(&ticking, &QTimer::timeout, this, &Playback::report);
    if (!volume) return;
    const auto follow = [this, volume] { player.setVolume(volume->volume()); };
    connect(volume, &PreviewVolume::changed, this, follow);
    follow();
}

Playback::~Playback() = default;

void Playback::setSink(std::shared_ptr<FrameSink> sink, int width, int height) {
    player.setSink(std::move(sink), width, height);
}

QString Playback::sourceText() const {
    return shownSource ? QString::fromStdString(shownSource->text()) : QString();
}

void Playback::load(PlayerItem item, double place) {
    const double before = std::exchange(awaitedRate, 0) + speed;
    beforeSkim.reset();
    wasPlaying = false;
    stopAt.reset();
    const double rate = item.composition.rate;
    const double length = item.composition.length();
    setPlayable({0, length});
    setTime(inSpan(place));
    player.load(std::move(item), at);
    followSize();
    setFrames(rate);
    if (before != 0) run(before);
}

/// The size stays: the picture's place is the same until the next one comes.
void Playback::await(Stretch span, double place) {
    const double before = speed + awaitedRate;
    takeAway();
    awaitedRate = before;
    setPlayable({span.from, std::max(span.from, span.to)});
    setTime(inSpan(place));
}

void Playback::unload() {
    takeAway();
    followSize();
}

void Playback::takeAway() {
    player.unload();
    awaitedRate = 0;
    beforeSkim.reset();
    wasPlaying = false;
    stopAt.reset();
    setRate(0);
    setPlayable({});
    setTime(0);
    setFrames(framesWithoutItem);
    setSource(std::nullopt);
}

void Playback::refresh(Plan plan) {
    player.refresh(std::move(plan));
    followSize();
}

bool Playback::remix(PlayerItem item) {
    if (!player.item() || !player.item()->hasPictureOf(item)) return false;
    player.remix(std::move(item));
    followSize();
    return true;
}

void Playback::followSize() {
    const auto& item = player.item();
    const auto now = item ? item->composition.box->plan()->frame : Size();
    const QSize whole(static_cast<int>(now.width), static_cast<int>(now.height));
    if (whole == size) return;
    size = whole;
    emit frameSizeChanged();
}

void Playback::setSpan(Stretch span) {
    const double length = player.length();
    const auto inside = [length](double time, double otherwise) {
        return std::isnan(time) ? otherwise : std::clamp(time, 0.0, length);
    };
    const double from = inside(span.from, 0);
    setPlayable({from, std::max(from, inside(span.to, length))});
}

void Playback::setSource(std::optional<UUID> source) {
    if (source == shownSource) return;
    shownSource = source;
    emit sourceChanged();
}

double Playback::inSpan(double time) const {
    if (std::isnan(time)) return playable.from;
    return std::clamp(time, playable.from, std::max(playable.from, playable.to - lastPicture));
}

void Playback::seek(double to) {
    const bool skimming = beforeSkim.has_value();
    beforeSkim.reset();
    const double place = inSpan(to);
    if (place == at && !skimming) return;
    player.seek(place);
    if (place == at) emit timeChanged(); // a skim ends where it began: the picture is another
    setTime(place);
}

void Playback::playPause() {
    takeOver();
    if (player.rate() != 0) return halt();
    if (at >= playable.to - atEnd) seek(playable.from);
    run(1);
}

void Playback::play(Stretch stretch) {
    takeOver();
    halt();
    seek(stretch.from);
    stopAt = std::isnan(stretch.to) ? playable.to : std::min(stretch.to, playable.to);
    run(1);
}

void Playback::pause() {
    takeOver();
    halt();
}

void Playback::shuttle(bool forward) {
    takeOver();
    const double now = player.rate();
    const bool same = forward ? now > 0 : now < 0;
    const double faster = same ? std::min(2 * std::abs(now), fastest) : 1;
    run(forward ? faster : -faster);
}

void Playback::step(double by) {
    wasPlaying = false;
    halt();
    seek(at + by);
}

void Playback::skim(double to) {
    if (!isLoaded() || std::isnan(to)) return;
    if (!beforeSkim) {
        rateBefore = player.rate();
        wasPlaying = rateBefore != 0;
        halt();
        beforeSkim = at;
    }
    skimPlace = std::clamp(to, 0.0, player.length());
    player.skim(skimPlace);
}

void Playback::endScrub() {
    closeSkim();
    if (!std::exchange(wasPlaying, false)) return;
    run(rateBefore);
}

std::optional<double> Playback::skimmed() const {
    return beforeSkim ? std::optional(skimPlace) : std::nullopt;
}

void Playback::tick(double place) {
    if (beforeSkim || !isLoaded()) return;
    setTime(std::isfinite(place) ? place : playable.from);
    setRate(player.rate());
    const double end = stopAt.value_or(playable.to);
    const bool done = speed > 0 ? at >= end - stopEarly : speed < 0 && at <= playable.from + stopEarly;
    if (!done) return;
    if (speed > 0) stopAt.reset();
    player.stand(at);
    setRate(0);
}

/// Ticks with the player's place. Where frames are that short the last one is let on before play ends.
void Playback::report() {
    double place = player.place();
    const double end = stopAt.value_or(playable.to);
    if (speed > 0 && place < end - 1 / frames) place = std::min(place, end - stopEarly - noTime);
    tick(place);
}

/// Brings a skim's picture back to where it began.
void Playback::closeSkim() {
    if (beforeSkim) seek(*beforeSkim);
}

/// A command of the transport ends a skim and forgets what it was to go back to.
void Playback::takeOver() {
    closeSkim();
    wasPlaying = false;
    awaitedRate = 0;
    stopAt.reset();
}

/// Stands still where it is.
void Playback::halt() {
    if (player.rate() != 0) {
        setTime(player.place());
        player.stand(at);
    }
    setRate(0);
}

void Playback::run(double rate) {
    player.run(rate);
    setRate(player.rate());
}

void Playback::setTime(double time) {
    if (time == at) return;
    at = time;
    emit timeChanged();
}

void Playback::setRate(double rate) {
    if (rate == 0) ticking.stop();
    if (rate != 0 && !ticking.isActive()) ticking.start();
    if (rate == speed) return;
    speed = rate;
    emit rateChanged();
}

void Playback::setPlayable(Stretch span) {
    if (span == playable) return;
    playable = span;
    emit spanChanged();
}

void Playback::setFrames(double rate) {
    if (rate == frames) return;
    frames = rate;
    emit frameRateChanged();
}

}
