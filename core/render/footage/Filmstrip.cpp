#include "core/render/footage/Filmstrip.h"

#include "core/model/Source.h"
#include "core/render/footage/Thumbnail.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/image/Jpeg.h"

#include <algorithm>

namespace murbo {

namespace {

constexpr double quality = 0.7;
constexpr std::size_t maxBytes = 1 << 20; // far above any thumbnail
constexpr int longestStep = 1 << 30;      // seconds

}

Filmstrip::Filmstrip(const Source& source, const std::optional<std::filesystem::path>& package)
    : file(source.path),
      folder(package ? std::optional(*package / "cache" / "stills" / source.id.text()) : std::nullopt) {}

std::optional<Bitmap> Filmstrip::still(int second) const {
    const std::lock_guard hold(lock);
    const auto found = images.find(second);
    return found == images.end() ? std::nullopt : std::optional(found->second);
}

std::optional<Bitmap> Filmstrip::make(int second) {
    if (auto known = still(second)) return known;
    auto picture = stored(second);
    if (!picture) {
        picture = drawn(second);
        if (picture) store(second, *picture);
    }
    if (picture) keep(second, *picture);
    return picture;
}

int Filmstrip::step(double tile, double pointsPerSecond) {
    const double wanted = tile / std::max(pointsPerSecond, 0.0001);
    int step = 1;
    while (step < wanted && step < longestStep) step *= 2;
    return step;
}

std::optional<std::filesystem::path> Filmstrip::place(int second) const {
    return folder ? std::optional(*folder / (std::to_string(second) + ".jpg")) : std::nullopt;
}

std::optional<Bitmap> Filmstrip::stored(int second) const {
    const auto path = place(second);
    if (!path) return {};
    try {
        auto picture = Jpeg::decode(Files::readWhole(*path, maxBytes), maxPixels);
        if (picture) return picture;
    } catch (const Problem&) {
    }
    return {};
}

std::optional<Bitmap> Filmstrip::drawn(int second) {
    const std::lock_guard hold(reading);
    try {
        if (!std::exchange(opened, true)) reader = FrameReader::open(file, FrameReader::Purpose::stills);
        const auto found = reader ? reader->at(second) : std::nullopt;
        return found ? std::optional(Thumbnail::of(found->frame, Filmstrip::maxPixels)) : std::nullopt;
    } catch (const Problem&) {
        return {};
    }
}

/// A thumbnail that can't be kept is made again another time.
void Filmstrip::store(int second, const Bitmap& picture) const {
    const auto path = place(second);
    if (!path) return;
    try {
        // A package that somebody has moved away must not be there again for the sake of its cache.
        std::error_code error;
        if (!std::filesystem::is_directory(folder->parent_path().parent_path().parent_path(), error)) return;
        Files::createFolder(*folder);
        Files::writeWhole(*path, Jpeg::encode(picture, quality));
    } catch (const Problem&) {
    }
}

void Filmstrip::keep(int second, const Bitmap& picture) {
    const std::lock_guard hold(lock);
    if (!images.insert_or_assign(second, picture).second) return;
    if (order.size() >= maxKept) {
        images.erase(order.front());
        order.pop_front();
    }
    order.push_back(second);
}

}
