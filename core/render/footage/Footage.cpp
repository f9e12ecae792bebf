#include "core/render/footage/Footage.h"

#include "core/model/Times.h"
#include "platform/base/Problem.h"

#include <algorithm>
#include <cmath>

namespace murbo {

namespace {

constexpr double nearStep = 0.2; // seconds; who asks again within this is playing
constexpr double stillsASecond = 30;
constexpr std::size_t maxStills = 91;
constexpr double longest = 1e9; // seconds

std::int64_t bytesOf(const Frame& frame) {
    const std::int64_t sample = frame.layout == Frame::Layout::bgra ? 4 : frame.depth > 8 ? 2 : 1;
    const std::int64_t planes = frame.layout == Frame::Layout::chroma444 ? 3 : 2;
    return sample * planes * frame.width * frame.height;
}

}

Footage::Footage(std::filesystem::path given, std::int64_t maxBytes)
    : file(std::move(given)), maxStillBytes(maxBytes) {}

std::optional<Image> Footage::frame(double time) {
    const std::lock_guard hold(lock);
    if (!open() || std::isnan(time)) return {};
    time = std::clamp(time, -longest, longest);
    const bool near = isNear(time);
    asked = time;
    // Times within a millisecond of each other count as the same; where a picture has no place on the grid,
    // the reader itself allows most of that millisecond.
    const auto place = single->facts().picture->grid.near(time, Times::samePlace);
    time += Times::samePlace - FrameReader::tolerance;
    if (place) time = std::max(time, *place);
    // Played or picked out alone, and in whatever order, a time has one picture.
    const bool plays = near || (forward && forward->reaches(time));
    return plays ? playing(time) : still(time);
}

double Footage::length() {
    const std::lock_guard hold(lock);
    open();
    return seconds;
}

std::int64_t Footage::area() {
    const std::lock_guard hold(lock);
    open();
    return pixels;
}

/// Whether there are pictures; looks only once.
bool Footage::open() {
    if (std::exchange(opened, true)) return single.has_value();
    try {
        single = FrameReader::open(file, FrameReader::Purpose::stills);
        const auto& facts = single->facts();
        seconds = facts.length;
        if (facts.picture) pixels = std::llround(facts.picture->size.width * facts.picture->size.height);
    } catch (const Problem&) {
    }
    return single.has_value();
}

bool Footage::isNear(double time) const {
    return asked && *asked - Times::samePlace <= time && time <= *asked + nearStep;
}

std::optional<Image> Footage::playing(double time) {
    try {
        if (!forward) forward = FrameReader::open(file, FrameReader::Purpose::playing);
        if (const auto found = forward->at(time)) return Image::frame(found->frame);
    } catch (const Problem&) {
        // What a single picture makes of it.
    }
    return still(time);
}

std::optional<Image> Footage::still(double time) {
    const auto key = static_cast<std::int64_t>(std::floor(time * stillsASecond));
    if (const auto known = stills.find(key); known != stills.end() && known->second.isOn(time))
        return known->second.image;
    const auto found = single->at(time);
    if (!found) return {};
    keep(key, {Image::frame(found->frame), found->time, time, bytesOf(found->frame)});
    return stills.at(key).image;
}

void Footage::keep(std::int64_t key, KeptStill still) {
    if (stills.size() >= maxStills || stillBytes + still.bytes > maxStillBytes) {
        stills.clear();
        stillBytes = 0;
    }
    stillBytes += still.bytes - stills[key].bytes;
    stills[key] = std::move(still);
}

}
