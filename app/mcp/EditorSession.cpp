#include "app/mcp/EditorSession.h"

#include "app/editor/commands/LookCommands.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

namespace murbo {

void EditorSession::commit(const std::string& name, Project changed) {
    editor.change(name, [&](Project& live) { live = std::move(changed); });
}

std::string EditorSession::keepMedia(const std::filesystem::path& file) {
    const auto kept = LookCommands::keepMedia(editor, file, "sounds");
    if (!kept)
        throw Problem(Text::repaired(file.filename().string()) + " could not be copied into the project.");
    return *kept;
}

std::map<UUID, std::vector<std::uint8_t>> EditorSession::loudness(const std::vector<UUID>& sources) {
    std::map<UUID, std::vector<std::uint8_t>> known;
    for (const auto& id : sources) {
        const bool canBeHeard = editor.project().source(id) && !editor.missing().contains(id);
        if (!canBeHeard)
            known.try_emplace(id);
        else if (const auto* measured = editor.loudness(id))
            known.try_emplace(id, measured->levels);
    }
    return known;
}

}
