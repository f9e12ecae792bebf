#pragma once

#include "core/ai/Reading.h"

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A video cut, or cut anew, to what the owner says in words.
namespace CutToInstruction {

struct Answer {
    std::string title;
    std::vector<Cut> cuts; ///< none where nothing matched
    std::string note;      ///< for the owner; may be empty
};

/// The task, in the words that the model gets.
std::string instructions(Video::Aspect aspect, bool revising);

/// The conversation that leads to a new video.
Reading reading(const std::string& instruction, const std::vector<UUID>& scope,
                const std::vector<UUID>& given, Video::Aspect aspect, const Project& project);

/// The conversation that leads to other cuts for a video. The clips that it plays are given, and may be read
/// beside `scope`.
Reading revising(const Video& video, const std::string& instruction, const std::vector<UUID>& scope,
                 const Project& project);

/// What a final reply holds. With a video that is revised, cuts of the same lines keep their trims, and the
/// generated ones stay.
Answer answer(const nlohmann::json& object, const Reading& from, const Video* revised = nullptr);

}

}
