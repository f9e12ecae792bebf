#include "core/mcp/MCPCalls.h"

#include "core/ai/VideoChange.h"
#include "core/mcp/ChangeTools.h"
#include "core/mcp/MCPArguments.h"
#include "core/mcp/ReadTools.h"
#include "platform/base/Problem.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::MCPCalls {

namespace {

using ID = MCPTool::ToolID;

MCPResult run(ID tool, const nlohmann::json& arguments, Project& project, const MCPContext& context,
              const Said& said) {
    switch (tool) {
        case ID::overview:
            return ReadTools::overview(project, said);
        case ID::readClips:
            return ReadTools::readClips(arguments, project, said);
        case ID::searchLines:
            return ReadTools::searchLines(arguments, project, said);
        case ID::readVideo:
            return ReadTools::readVideo(arguments, project, said);
        case ID::readLoudness:
            return ReadTools::readLoudness(arguments, project, said, context);
        case ID::listBookmarks:
            return ReadTools::listBookmarks(project, said);
        case ID::whatChanged:
            return ReadTools::whatChanged(arguments, project, said, context);
        case ID::describeClips:
            return ChangeTools::describeClips(arguments, project, said);
        case ID::fixLines:
            return ChangeTools::fixLines(arguments, project, said);
        case ID::proposeIdeas:
            return ChangeTools::proposeIdeas(arguments, project, said);
        case ID::makeVideo:
            return ChangeTools::makeVideo(arguments, project, said);
        case ID::setCuts:
            return ChangeTools::setCuts(arguments, project, said);
        case ID::renameVideo:
            return ChangeTools::renameVideo(arguments, project);
        case ID::setShots:
            return ChangeTools::setShots(arguments, project, said, context);
        case ID::setCaptions:
            return ChangeTools::setCaptions(arguments, project, said);
        case ID::setSounds:
            return ChangeTools::setSounds(arguments, project, said, context);
        case ID::listPlaybooks:
        case ID::readPlaybook:
        case ID::playbookGuide:
        case ID::listSounds:
        case ID::undoMyLast:
        case ID::writePlaybook:
            break;
    }
    throw Problem(unknown(MCPTool::all()[static_cast<std::size_t>(tool)].name));
}

}

MCPResult call(std::string_view name, const nlohmann::json& arguments, Project& project,
               const MCPContext& context) {
    const auto* tool = MCPTool::named(name);
    if (!tool) throw Problem(unknown(name));
    MCPArguments::check(*tool, arguments);
    const auto said = context.said ? context.said : std::make_shared<const Said>(project);
    auto changed = project; // a copy that costs little: a change is taken over whole or not at all
    auto result = run(tool->id, arguments, changed, context, *said);
    project = std::move(changed);
    return result;
}

bool isInApp(ID tool) {
    switch (tool) {
        case ID::listPlaybooks:
        case ID::readPlaybook:
        case ID::playbookGuide:
        case ID::listSounds:
        case ID::undoMyLast:
        case ID::writePlaybook:
            return true;
        default:
            return false;
    }
}

std::string unknown(std::string_view name) {
    return fmt::format("Murbo has no tool called {}.", VideoChange::given(nlohmann::json(name)));
}

}
