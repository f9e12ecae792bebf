#pragma once

#include "platform/base/SeededRandom.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Sample requests for an AI app, fitted to a project, so that a blank box is never blank.
namespace PromptIdeas {

/// What may stand in a request's places: tags, and names of sources.
struct Slots {
    std::optional<std::string> pickedVideo;
    std::optional<std::string> pickedClip;
    std::vector<std::string> pickedClips;
    std::optional<std::string> pickedSource;
    std::vector<std::string> videos;
    std::vector<std::string> clips;
    std::vector<std::string> sources;
    std::vector<std::string> lines;
};

/// The stock: texts with places such as "{clip}".
std::span<const std::string_view> all();

/// Up to `count` requests whose places can all be filled. The same generator and slots give the same list.
std::vector<std::string> choose(std::size_t count, const Slots& slots, SeededRandom& random);

/// A text with its places filled; nothing where one can't be.
std::optional<std::string> fill(std::string_view text, const Slots& slots, SeededRandom& random);

}

}
