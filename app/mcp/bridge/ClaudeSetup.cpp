#include "app/mcp/bridge/ClaudeSetup.h"

#include "platform/base/Files.h"
#include "platform/base/HomeFolder.h"
#include "platform/base/Problem.h"

#include <cstdlib>

#include <nlohmann/json.hpp>

namespace murbo::ClaudeSetup {

namespace {

namespace fs = std::filesystem;
using Config = nlohmann::ordered_json; // the owner's keys stay in the owner's order

constexpr std::size_t maxBytes = std::size_t{16} << 20;

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

/// The configuration; an empty one where there is no file. Throws a Problem where it can't be read.
Config config() {
    if (!isThere(file())) return Config::object();
    try {
        auto read = Config::parse(Files::readWhole(file(), maxBytes));
        const auto servers = read.is_object() ? read.find("mcpServers") : read.end();
        if (read.is_object() && (servers == read.end() || servers->is_object())) return read;
    } catch (const std::exception&) { // reported below
    }
    throw Problem("Claude Desktop's config could not be read, so it was left as it is.");
}

}

fs::path command() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path() / "murbo";
}

fs::path file() {
    const auto* set = std::getenv("XDG_CONFIG_HOME");
    const auto folder = set && *set == '/' ? fs::path(set) : homeFolder() / ".config";
    return folder / "Claude" / "claude_desktop_config.json";
}

State desktop() try {
    const auto its = config().value(Config::json_pointer("/mcpServers/murbo/command"), std::string());
    if (its.empty()) return {};
    if (its == command().string()) return {State::Kind::ours, its};
    return {State::Kind::other, its};
} catch (const std::exception&) {
    return {};
}

Written addToDesktop() {
    auto changed = config();
    Written written{file(), {}};
    if (isThere(file())) {
        written.backup = file().string() + ".backup";
        Files::copy(file(), written.backup);
    }
    changed["mcpServers"]["murbo"] = {{"command", command().string()}, {"args", Config::array({"--mcp"})}};
    Files::createFolder(file().parent_path());
    Files::writeWhole(file(), changed.dump(2) + "\n");
    return written;
}

}
