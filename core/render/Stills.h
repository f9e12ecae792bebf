#pragma once

#include "core/render/captions/CaptionCache.h"
#include "core/render/plan/Plan.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/Image.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// Single pictures of a video, the same that its movie holds.
namespace Stills {

/// The video at a moment, in video seconds. The picture is the exact one; where it can't be read it is black,
/// with its captions. `plan` saves laying the video out again, and whoever takes many stills saves reading
/// the files of playbooks again by giving the same `media` each time.
Image frame(const Video& video, const Project& project, const std::set<UUID>& missing,
            const std::string& fonts, const std::optional<std::filesystem::path>& package, double at,
            const std::optional<Plan>& plan, CaptionCache& captions, PlaybookMedia* media = nullptr);

/// The same moment once in each caption style.
std::vector<Image> styled(const Video& video, const Project& project, const std::set<UUID>& missing,
                          const std::string& fonts, const std::optional<std::filesystem::path>& package,
                          double at, const std::vector<CaptionStyle>& styles);

/// A specimen of a caption style; nothing where it can't be drawn.
std::optional<Image> caption(const std::string& text, const CaptionStyle& style, const std::string& fonts);

/// The bytes of a JPEG file, `quality` from 0 to 1; nothing where there is no picture.
std::optional<std::string> jpeg(const Image& image, double quality);

}

}
