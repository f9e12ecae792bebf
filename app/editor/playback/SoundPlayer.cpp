#include "app/editor/playback/SoundPlayer.h"

#include <algorithm>
#include <utility>

namespace murbo {

/// One run of sound, and the clock that it gives.
struct SoundPlayer::SoundRun {
    explicit SoundRun(double given) : patience(given) {}

    const double patience;
    std::mutex lock;
    std::shared_ptr<SoundOutput> output; ///< once it has started
    bool silent = false;                 ///< nothing will be heard
    double begun = PlayerClock::computer();
    double told = 0;

    double elapsed() {
        const std::lock_guard hold(lock);
        const double passed = PlayerClock::computer() - begun;
        if (!output && !silent && passed > patience) {
            silent = true;
            begun += patience;
        }
        if (silent) told = std::max(told, PlayerClock::computer() - begun);
        if (output) told = std::max(told, output->heard());
        return told;
    }

    /// Whether the sound may begin: not where the wait for it was too long.
    bool starts(std::shared_ptr<SoundOutput> started) {
        const std::lock_guard hold(lock);
        if (silent) return false;
        if (!started) {
            silent = true;
            begun = PlayerClock::computer();
        }
        output = std::move(started);
        return output != nullptr;
    }

    void end() {
        const std::lock_guard hold(lock);
        if (output) told = std::max(told, output->heard());
        output.reset();
        silent = true;
        begun = PlayerClock::computer() - told;
    }
};

SoundPlayer::SoundPlayer(MakeOutput given, double patient) : make(std::move(given)), patience(patient) {
    if (make) working = std::jthread([this](const std::stop_token& ending) { work(ending); });
}

SoundPlayer::~SoundPlayer() {
    working.request_stop();
    if (working.joinable()) working.join(); // the output asks this for sound until then
}

void SoundPlayer::load(std::vector<SoundMix::Track> tracks, double length) {
    stop();
    const std::lock_guard hold(lock);
    coming = {.tracks = std::move(tracks), .length = length, .another = true};
}

void SoundPlayer::remix(std::vector<SoundMix::Track> tracks) {
    const std::lock_guard hold(lock);
    if (coming)
        coming->tracks = std::move(tracks);
    else
        coming = {.tracks = std::move(tracks)};
}

void SoundPlayer::setVolume(double factor) {
    volume = factor;
}

PlayerClock::Now SoundPlayer::start(double place, double rate) {
    auto session = std::make_shared<SoundRun>(patience);
    const bool audible = make && std::abs(rate) <= SoundFeed::fastest;
    if (!audible) session->silent = true;
    give({.session = audible ? session : nullptr, .place = place, .rate = rate});
    return [session] { return session->elapsed(); };
}

void SoundPlayer::stop() {
    give({});
}

void SoundPlayer::give(SoundOrder next) {
    const std::lock_guard hold(lock);
    next.number = order.number + 1;
    order = std::move(next);
    changed.notify_all();
}

void SoundPlayer::work(const std::stop_token& ending) {
    std::uint64_t done = 0;
    while (true) {
        SoundOrder now;
        {
            std::unique_lock hold(lock);
            if (!changed.wait(hold, ending, [&] { return order.number != done; })) break;
            now = order;
        }
        done = now.number;
        end();
        if (now.session) begin(now);
    }
    end();
}

void SoundPlayer::begin(const SoundOrder& now) {
    if (!output) output = make();
    takeMix();
    {
        const std::lock_guard hold(mixing);
        if (feed) feed->start(now.place, now.rate);
    }
    const bool starts = output && output->start([this](std::span<float> into) { fill(into); });
    if (now.session->starts(starts ? output : nullptr))
        running = now.session;
    else if (starts)
        output->stop();
}

void SoundPlayer::end() {
    if (!running) return;
    std::exchange(running, nullptr)->end();
    output->stop();
}

void SoundPlayer::takeMix() {
    std::optional<TrackMix> mix;
    {
        const std::lock_guard hold(lock);
        mix = std::exchange(coming, std::nullopt);
    }
    if (!mix) return;
    const std::lock_guard hold(mixing);
    if (mix->another)
        feed.emplace(std::move(mix->tracks), mix->length);
    else if (feed)
        feed->replace(std::move(mix->tracks));
}

void SoundPlayer::fill(std::span<float> into) {
    bool another = false;
    {
        const std::lock_guard hold(lock);
        another = coming && coming->another;
    }
    if (!another) takeMix(); // another video's sound waits for its start
    const std::lock_guard hold(mixing);
    if (!feed) {
        std::ranges::fill(into, 0.0F);
        return;
    }
    feed->setVolume(volume);
    feed->read(into);
}

}
