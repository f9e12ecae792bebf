#include "app/editor/commands/CommandRun.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/CommandTable.h"
#include "platform/base/Json.h"
#include "platform/base/Problem.h"

#include <exception>

namespace murbo::CommandRun {
namespace {

const EditorCommand& commandOf(const JsonValue& line) {
    const auto& name = line.element(0).text();
    const auto* command = CommandTable::find(name);
    if (!command) throw Problem("There is no command “" + name + "”.");
    return *command;
}

}

bool run(Editor& editor, const std::string& line) try {
    const auto json = Json::parse(line);
    commandOf(json.root()).run(editor, json.root());
    return true;
} catch (const std::exception& error) {
    editor.refuse(error.what());
    return false;
}

bool possible(const Editor& editor, const std::string& line) {
    const auto json = Json::parse(line);
    return commandOf(json.root()).possible(editor);
}

std::string title(const std::string& line) {
    const auto json = Json::parse(line);
    return commandOf(json.root()).title;
}

}
