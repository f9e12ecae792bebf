#pragma once

#include "app/editor/ai/ModelTask.h"
#include "core/ai/Price.h"
#include "core/ai/Toolkit.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What models make of footage: ideas, videos, other cuts for a video.
namespace VideoTasks {

/// What is asked for, in the owner's words.
struct Wish {
    std::string instruction; ///< may be empty where the task can do without
    std::vector<UUID> clips; ///< to make it from; none for all
    Video::Aspect aspect = Video::Aspect::vertical;
};

/// Ideas, after those that wait.
ModelTask ideas(const Wish& wish);
/// A new video. Its run is stamped under `also` too, where it is a part of something larger.
ModelTask cut(const Wish& wish, std::optional<Kit::ID> also = std::nullopt);
/// Other cuts for a video.
ModelTask revise(const Video& video, const std::string& instruction);

/// The dollars of a task's first request.
double cost(const ModelTask& task, const Project& project, const Price& price);

}

}
