#include "app/editor/commands/CommandTable.h"

#include "app/editor/Keys.h"
#include "app/editor/commands/CaptionCommands.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/FootageAICommands.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/IdeaCommands.h"
#include "app/editor/commands/IntakeCommands.h"
#include "app/editor/commands/KeyCommands.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/MarkCommands.h"
#include "app/editor/commands/OverlayCommands.h"
#include "app/editor/commands/PlayerCommands.h"
#include "app/editor/commands/PromptCommands.h"
#include "app/editor/commands/SessionCommands.h"
#include "app/editor/commands/SessionFields.h"
#include "app/editor/commands/ShotCommands.h"
#include "app/editor/commands/SoundCommands.h"
#include "app/editor/commands/StyleCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "app/editor/commands/TranscribeCommands.h"
#include "app/editor/commands/VideoAICommands.h"
#include "app/editor/commands/VideoCommands.h"

#include <algorithm>
#include <unordered_map>

#include <fmt/format.h>

namespace murbo::CommandTable {
namespace {

struct CommandSubject {
    const char* title;
    CommandList (*table)();
};

constexpr CommandSubject subjects[] = {
    {"The session", SessionCommands::table},
    {"Bringing footage in", IntakeCommands::table},
    {"Writing down what is said", TranscribeCommands::table},
    {"Clips and lines", FootageCommands::table},
    {"Marks, bookmarks, notes", MarkCommands::table},
    {"Videos", VideoCommands::table},
    {"Cuts", CutCommands::table},
    {"Picks on the timeline", TimelinePicks::table},
    {"The look", LookCommands::table},
    {"Shots", ShotCommands::table},
    {"Overlays", OverlayCommands::table},
    {"Sounds", SoundCommands::table},
    {"Captions", CaptionCommands::table},
    {"Caption styles", StyleCommands::table},
    {"Models that read footage", FootageAICommands::table},
    {"Models that make videos", VideoAICommands::table},
    {"Ideas", IdeaCommands::table},
    {"AI apps", PromptCommands::table},
    {"Players", PlayerCommands::table},
    {"Keys", KeyCommands::table},
};

/// A text in a cell of a table.
std::string cell(std::string text) {
    for (auto at = text.find('|'); at != text.npos; at = text.find('|', at + 2)) text.insert(at, 1, '\\');
    return text;
}

std::string arguments(const EditorCommand& command) {
    std::string list;
    for (const auto& argument : command.arguments)
        list += fmt::format("{}`{}`{} {}", list.empty() ? "" : "<br>", argument.name,
                            argument.optional ? "?" : "", cell(argument.kind));
    return list;
}

std::string section(const CommandSubject& subject) {
    auto text = fmt::format("\n## {}\n\n| name | title | arguments |\n| --- | --- | --- |\n", subject.title);
    for (const auto& command : subject.table())
        text += fmt::format("| `{}` | {} | {} |\n", command.name, command.title, arguments(command));
    return text;
}

std::string fields() {
    std::string text = "\n## Fields that `set` sets\n\n| name | value |\n| --- | --- |\n";
    for (const auto& field : SessionFields::all())
        text += fmt::format("| `{}` | {}{} |\n", field.name, cell(field.kind),
                            field.mayBeNone ? ", or null" : "");
    return text;
}

std::string keys() {
    std::string text =
        "\n## Editing commands and their standard keys\n\n| name | title | key |\n| --- | --- | --- |\n";
    const auto names = rawTexts(Command{});
    for (std::size_t at = 0; at < names.size(); ++at) {
        const auto command = static_cast<Command>(at);
        text += fmt::format("| `{}` | {} | `{}` |\n", names[at], Keys::title(command),
                            Keys::standardKey(command));
    }
    return text;
}

}

const CommandList& all() {
    static const auto list = [] {
        CommandList commands;
        for (const auto& subject : subjects) std::ranges::move(subject.table(), std::back_inserter(commands));
        return commands;
    }();
    return list;
}

const EditorCommand* find(const std::string& name) {
    static const auto byName = [] {
        std::unordered_map<std::string, const EditorCommand*> map;
        for (const auto& command : all()) map.emplace(command.name, &command);
        return map;
    }();
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
}

std::string page() {
    std::string text =
        "# Commands\n\nEvery command of a session, as `murbo --script <project> [<file>]` takes them: a line "
        "is a "
        "JSON array, `[\"name\", argument, …]`, and each is answered by a line of JSON. Times are seconds. "
        "Arguments marked `?` may be left out at the end, or be null. `./dev pages` prints this page anew.\n";
    for (const auto& subject : subjects) text += section(subject);
    return text + fields() + keys();
}

}
