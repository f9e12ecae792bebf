#include "core/render/sound/MixedSound.h"

#include "platform/media/SoundReader.h"

#include <algorithm>
#include <utility>

namespace murbo {
namespace {

constexpr std::int64_t blockFrames = Sound::rate / 2;
constexpr std::size_t blocksAhead = 4;

}

MixedSound::MixedSound(std::vector<SoundMix::Track> tracks, double length)
    : mixer(std::move(tracks), length), blocks(blocksAhead), thread([this] { mix(); }) {}

MixedSound::~MixedSound() {
    stop();
}

std::optional<std::vector<float>> MixedSound::next() {
    auto block = blocks.pop();
    if (!block && !stopped && failure) std::rethrow_exception(failure);
    return block;
}

void MixedSound::stop() {
    stopped = true;
    blocks.abandon();
}

void MixedSound::mix() {
    try {
        for (std::int64_t from = 0; from < mixer.frames(); from += blockFrames) {
            std::vector<float> block(std::min(blockFrames, mixer.frames() - from) * Sound::channels);
            mixer.read(from, block);
            if (!blocks.push(std::move(block))) return;
        }
    } catch (...) {
        failure = std::current_exception();
    }
    blocks.finish();
}

}
