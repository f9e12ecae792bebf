#pragma once

#include "core/render/captions/CaptionPicture.h"

#include <mutex>
#include <optional>
#include <unordered_map>

namespace murbo {

/// The caption pictures drawn so far: a caption stays the same for dozens of frames. Any thread may ask; the
/// lock guards the look-up, never a drawing, so two threads may draw the same picture at once.
class CaptionCache {
public:
    /// The picture of a request, drawn where it is not kept.
    std::optional<Image> picture(const CaptionPicture::Request& request);

    /// How many are kept.
    std::size_t count() const;

private:
    std::optional<Image> kept(const CaptionPicture::Request& request) const;
    void keep(const CaptionPicture::Request& request, const Image& image);

    mutable std::mutex lock;
    std::unordered_map<CaptionPicture::Request, Image> pictures;
    double pixels = 0;
};

}
