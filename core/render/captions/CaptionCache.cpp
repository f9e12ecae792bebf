#include "core/render/captions/CaptionCache.h"

namespace murbo {

namespace {

// When either is reached all are dropped: captions are cheap to draw again, and no order of leaving is worth
// keeping. The pixels (64 MB) hold a minute of captions, so that memory stays flat over a long video.
constexpr std::size_t maxPictures = 401;
constexpr double maxPixels = 16'000'000;

double area(const Image& image) {
    return image.extent().width * image.extent().height;
}

}

std::optional<Image> CaptionCache::picture(const CaptionPicture::Request& request) {
    if (auto image = kept(request)) return image;
    const auto image = CaptionPicture::draw(request);
    if (image) keep(request, *image);
    return image;
}

std::size_t CaptionCache::count() const {
    const std::lock_guard guard(lock);
    return pictures.size();
}

std::optional<Image> CaptionCache::kept(const CaptionPicture::Request& request) const {
    const std::lock_guard guard(lock);
    const auto found = pictures.find(request);
    return found == pictures.end() ? std::nullopt : std::optional(found->second);
}

void CaptionCache::keep(const CaptionPicture::Request& request, const Image& image) {
    std::unordered_map<CaptionPicture::Request, Image> dropped; // freed after the lock
    const std::lock_guard guard(lock);
    if (pictures.size() >= maxPictures || pixels + area(image) > maxPixels) {
        dropped.swap(pictures);
        pixels = 0;
    }
    if (pictures.insert_or_assign(request, image).second) pixels += area(image);
}

}
