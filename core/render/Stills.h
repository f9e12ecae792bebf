#pragma once

#include "core/render/PlanBox.h"
#include "platform/image/Image.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// Single pictures of a video, the same that its movie holds.
namespace Stills {

/// What stills are taken of.
struct Subject {
    const Video& video;
    const Project& project;
    std::set<UUID> missing; ///< sources whose file is gone: black
};

/// The video at a moment, in video seconds, by its plan in the box. The picture is the exact one; where it
/// can't be read it is black, with its captions. After the end it is the last frame of the last cut.
Image frame(const Subject& of, double at, PlanBox& box);

/// The same moment once in each caption style.
std::vector<Image> styled(const Subject& of, double at, const Plan& plan,
                          const std::vector<CaptionStyle>& styles);

/// The same moment once by each plan of the video.
std::vector<Image> planned(const Subject& of, double at, const std::vector<Plan>& plans);

/// A specimen of a caption style; nothing where it can't be drawn.
std::optional<Image> caption(const std::string& text, const CaptionStyle& style, const std::string& fonts);

/// The bytes of a JPEG file, `quality` from 0 to 1; nothing where there is no picture.
std::optional<std::string> jpeg(const Image& image, double quality);

}

}
