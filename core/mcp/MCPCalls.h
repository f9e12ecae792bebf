#pragma once

#include "core/ai/Said.h"
#include "core/ai/ShotsByTag.h"
#include "core/ai/SoundsByTag.h"
#include "core/mcp/MCPTool.h"
#include "core/model/Project.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Carries out the tools of AI apps on a project value. It knows nothing of sockets, permissions or sessions.
namespace MCPCalls {

struct Result {
    std::string text;                ///< the answer
    std::optional<std::string> step; ///< the name of the undo step, of a change
    std::optional<UUID> looked;      ///< a video that the caller has now seen as it is
};

/// What the tools need from outside the project.
struct Context {
    ShotsByTag::Layouts layouts;
    SoundsByTag::Library sounds;
    std::map<UUID, std::vector<std::uint8_t>> loudness; ///< of the sources measured so far
    std::map<UUID, Video> seen;                         ///< as each stood when last read or changed
    std::shared_ptr<const Said> said;                   ///< of the project; made where it is missing
};

/// Runs a tool. Throws a Problem with words for the model; the project is as it was then. The tools that need
/// the program's library are not answered here.
Result call(std::string_view name, const nlohmann::json& arguments, Project& project, const Context& context);

/// Whether a tool needs the program's library, and so is the host's.
bool isInApp(MCPTool::ID tool);

/// The video of a tag. Throws a Problem that names those there are.
const Video& video(const nlohmann::json& tag, const Project& project);

/// The clips of a list of tags. Throws a Problem.
std::vector<const Clip*> clips(const nlohmann::json& tags, const Project& project);

/// The line under a second of a source, or the nearest one with the distance: "C14.03", "C14.03 + 1.5 s".
/// Nothing where nothing is said on the source.
std::optional<std::string> line(double second, const UUID& source, const Said& said);

/// The sources whose loudness a call of read_loudness looks at. Throws a Problem.
std::vector<UUID> sourcesHeard(const nlohmann::json& arguments, const Project& project);

/// The words for a tool that nobody has heard of.
std::string unknown(std::string_view name);

}

}
