#include "app/editor/playback/SoundFeed.h"

#include "platform/media/SoundReader.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr std::int64_t fadeFrames = 480;          // 10 ms
constexpr std::int64_t blockFrames = Sound::rate; // backward, one take-up in a second
constexpr std::int64_t spareFrames = 8;           // after a block

std::int64_t framesOf(std::span<const float> samples) {
    return static_cast<std::int64_t>(samples.size() / Sound::channels);
}

/// From one sound to the other over what is heard first of both: backward that is their end.
void crossFade(std::span<float> from, std::span<const float> to, bool backward) {
    for (std::size_t at = 0; at < from.size(); ++at) {
        const auto frame = static_cast<std::int64_t>(at / Sound::channels);
        const auto heard = backward ? std::max<std::int64_t>(framesOf(from) - spareFrames - frame, 0) : frame;
        const float share = std::min(1.0F, static_cast<float>(heard) / fadeFrames);
        from[at] += share * (to[at] - from[at]);
    }
}

}

SoundFeed::SoundFeed(std::vector<SoundMix::Track> tracks, double seconds)
    : length(seconds), mixer(std::move(tracks), seconds) {}

void SoundFeed::start(double seconds, double speed) {
    place = std::round(seconds * Sound::rate);
    rate = speed;
    volumeBefore = 0;
    block.clear();
    leaving.reset();
}

void SoundFeed::replace(std::vector<SoundMix::Track> tracks) {
    leaving = std::exchange(mixer, SoundMixer(std::move(tracks), length));
    block.clear();
}

void SoundFeed::read(std::span<float> into) {
    into = into.first(into.size() / 2 * 2);
    if (rate == 0 || std::abs(rate) > fastest) {
        std::ranges::fill(into, 0.0F);
    } else if (rate == 1) {
        mixed(static_cast<std::int64_t>(place), into);
        place += static_cast<double>(framesOf(into));
    } else {
        sounding(into);
    }
    level(into);
}

/// The mix from a frame on; the one before fades out beneath it.
void SoundFeed::mixed(std::int64_t from, std::span<float> into) {
    if (!leaving) return mixer.read(from, into);
    leaving->read(from, into);
    std::vector<float> next(into.size());
    mixer.read(from, next);
    crossFade(into, next, rate < 0);
    leaving.reset();
}

/// At another rate each frame is the mean of those that it passes over, as on a tape.
void SoundFeed::sounding(std::span<float> into) {
    const double step = std::abs(rate);
    for (std::size_t at = 0; at < into.size(); at += 2) {
        const double next = place + rate;
        const auto first = static_cast<std::int64_t>(std::floor(std::min(place, next)));
        const auto count = std::max<std::int64_t>(1, std::llround(step));
        const auto passed = stretch(first);
        for (std::size_t side = 0; side < 2; ++side) {
            float sum = 0;
            for (std::int64_t frame = 0; frame < count; ++frame) sum += passed[2 * frame + side];
            into[at + side] = sum / static_cast<float>(count);
        }
        place = next;
    }
}

/// The mix from a frame on, a few frames at the least. It is mixed in blocks: taking it up anew costs more
/// than a block.
std::span<const float> SoundFeed::stretch(std::int64_t from) {
    const std::int64_t last = blockFrom + framesOf(block) - spareFrames;
    if (block.empty() || from < blockFrom || from > last) {
        block.resize(Sound::channels * (blockFrames + spareFrames));
        blockFrom = rate > 0 ? from : from - blockFrames + 1;
        mixed(blockFrom, block);
    }
    return std::span<const float>(block).subspan(Sound::channels * (from - blockFrom));
}

void SoundFeed::level(std::span<float> into) {
    for (std::size_t at = 0; at < into.size(); ++at) {
        const auto frame = static_cast<std::int64_t>(at / Sound::channels);
        const float share = std::min(1.0F, static_cast<float>(frame) / fadeFrames);
        into[at] *= volumeBefore + share * (volume - volumeBefore);
    }
    if (framesOf(into) >= fadeFrames)
        volumeBefore = volume;
    else
        volumeBefore += static_cast<float>(framesOf(into)) / fadeFrames * (volume - volumeBefore);
}

}
