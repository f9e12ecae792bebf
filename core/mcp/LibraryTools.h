#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// The tools that need the owner's library and no project. Each throws a Problem with words for the model.
namespace LibraryTools {

/// The owner's sounds by the names that models know them by: "Hits/boom.wav".
std::vector<std::pair<std::string, std::filesystem::path>> sounds();

std::string listPlaybooks();
std::string readPlaybook(const nlohmann::json& arguments);
std::string listSounds(const nlohmann::json& arguments);

/// Checks a playbook's JSON and saves it.
std::string writePlaybook(const nlohmann::json& arguments);

}

}
