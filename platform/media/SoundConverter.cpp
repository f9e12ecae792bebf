#include "platform/media/SoundConverter.h"

#include <numeric>

extern "C" {
#include <libswresample/swresample.h>
}

#include "platform/media/Sound.h"

namespace murbo {

namespace {

// Formats round times to a millisecond, encoders a little more; nobody hears 20 ms.
constexpr double minGap = 0.02;
// A clock that runs wrongly drifts by less than this from one stretch to the next.
constexpr double maxDrift = 0.005;
// A drift is made up for over this long, by playing a little slower or faster: 2 % goes unnoticed.
constexpr int framesToCatchUp = Sound::rate;

// The layouts that say nothing of where their channels stand get the usual places.
void nameLayout(AVChannelLayout& told, const AVChannelLayout& given) {
    if (given.order == AV_CHANNEL_ORDER_NATIVE) {
        av_channel_layout_copy(&told, &given);
        return;
    }
    av_channel_layout_default(&told, given.nb_channels);
    if (told.order != AV_CHANNEL_ORDER_NATIVE)
        av_channel_layout_from_mask(&told, (std::uint64_t{1} << std::min(given.nb_channels, 18)) - 1);
}

SwrContext* newResampler(const AVFrame& sound) {
    AVChannelLayout from{};
    nameLayout(from, sound.ch_layout);
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    SwrContext* made = nullptr;
    if (from.nb_channels == sound.ch_layout.nb_channels)
        swr_alloc_set_opts2(&made, &stereo, AV_SAMPLE_FMT_FLT, Sound::rate, &from,
                            static_cast<AVSampleFormat>(sound.format), sound.sample_rate, 0, nullptr);
    // A single voice is as loud on each side as it was alone.
    const double both[2] = {1, 1};
    if (made && from.nb_channels == 1) swr_set_matrix(made, both, 1);
    if (made && swr_init(made) < 0) swr_free(&made);
    av_channel_layout_uninit(&from);
    return made;
}

std::int64_t floorDivide(std::int64_t value, std::int64_t by) {
    return value >= 0 ? value / by : -((-value + by - 1) / by);
}

}

void SoundConverter::FreeResampler::operator()(SwrContext* held) const {
    swr_free(&held);
}

void SoundConverter::restart() {
    resampler.reset();
    runs.clear();
}

bool SoundConverter::hasShapeOf(const AVFrame& sound) const {
    return resampler && sound.sample_rate == rate && sound.ch_layout.nb_channels == channels &&
           sound.format == format;
}

void SoundConverter::put(const AVFrame& sound, std::int64_t at) {
    const double off = hasShapeOf(sound) ? static_cast<double>(at - next) / rate : INFINITY;
    if (std::abs(off) > minGap) {
        const bool drifted = std::abs(off - lastOff) <= maxDrift;
        if (drifted) catchUp(off);
        if (!drifted) begin(sound, at);
        next = at;
    }
    lastOff = std::abs(off) > minGap ? 0 : off;
    if (!resampler) return;
    convert(const_cast<const std::uint8_t**>(sound.extended_data), sound.nb_samples);
    next += sound.nb_samples;
}

void SoundConverter::catchUp(double seconds) {
    swr_set_compensation(resampler.get(), static_cast<int>(std::lround(seconds * Sound::rate)),
                         framesToCatchUp);
}

// The resampler's steps fall on whole frames only at some samples. It always begins at one of those, with
// silence up to where the sound begins, so that its phase depends on the place alone.
void SoundConverter::begin(const AVFrame& sound, std::int64_t at) {
    finish();
    resampler.reset(newResampler(sound));
    rate = sound.sample_rate;
    channels = sound.ch_layout.nb_channels;
    format = sound.format;
    if (!resampler) return;
    const std::int64_t common = std::gcd(rate, Sound::rate);
    const std::int64_t block = rate / common;
    const std::int64_t whole = floorDivide(at, block);
    position = whole * (Sound::rate / common);
    if (const int lead = static_cast<int>(at - whole * block); lead > 0)
        swr_inject_silence(resampler.get(), lead);
    if (const std::int64_t start = std::max(position, end()); runs.empty() || start != end())
        runs.push_back({start, {}});
}

void SoundConverter::finish() {
    if (resampler) convert(nullptr, 0);
    resampler.reset();
}

void SoundConverter::convert(const std::uint8_t** planes, int samples) {
    const int max = swr_get_out_samples(resampler.get(), samples);
    if (max <= 0) return;
    scratch.resize(static_cast<std::size_t>(max) * Sound::channels);
    auto* out = reinterpret_cast<std::uint8_t*>(scratch.data());
    const int made = swr_convert(resampler.get(), &out, max, planes, samples);
    if (made > 0) append(scratch.data(), made);
}

// Where sound comes twice, the first stays.
void SoundConverter::append(const float* frames, std::int64_t count) {
    FrameRun& run = runs.back();
    const std::int64_t known = std::clamp<std::int64_t>(run.end() - position, 0, count);
    run.samples.insert(run.samples.end(), frames + known * 2, frames + count * 2);
    position += count;
}

std::int64_t SoundConverter::end() const {
    return runs.empty() ? INT64_MIN : runs.back().end();
}

std::int64_t SoundConverter::copy(std::int64_t from, std::span<float> into) const {
    const auto wanted = static_cast<std::int64_t>(into.size() / Sound::channels);
    std::int64_t held = 0;
    for (const FrameRun& run : runs) {
        const std::int64_t begin = std::max(from, run.start);
        const std::int64_t until = std::min(from + wanted, run.end());
        if (begin >= until) continue;
        std::copy_n(run.samples.begin() + (begin - run.start) * 2, (until - begin) * 2,
                    into.begin() + (begin - from) * 2);
        held = until - from;
    }
    return held;
}

void SoundConverter::forget(std::int64_t until) {
    while (runs.size() > 1 && runs.front().end() <= until) runs.pop_front();
    if (runs.empty() || runs.front().start >= until) return;
    FrameRun& run = runs.front();
    const std::int64_t count = std::min(until, run.end()) - run.start;
    run.samples.erase(run.samples.begin(), run.samples.begin() + count * 2);
    run.start += count;
}

}
