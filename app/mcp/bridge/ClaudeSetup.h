#pragma once

#include <filesystem>
#include <string>

namespace murbo {

/// The entry for Murbo in Claude Desktop's configuration.
namespace ClaudeSetup {

struct State {
    enum class Kind { missing, ours, other };
    Kind kind = Kind::missing;
    std::string path; ///< of the other copy that it is set up for
};

/// The program to start for the bridge: `murbo` beside the running one.
std::filesystem::path command();

/// Claude Desktop's file, in the user's configuration folder.
std::filesystem::path file();

State desktop();

struct Written {
    std::filesystem::path file;
    std::filesystem::path backup; ///< of the file as it was; empty where there was none
};

/// Puts the entry in and keeps everything else; what stood there before is kept beside it. Throws a Problem
/// with the file as it was.
Written addToDesktop();

}

}
