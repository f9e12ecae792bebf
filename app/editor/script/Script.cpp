#include "app/editor/script/Script.h"

#include "app/editor/commands/CommandTable.h"
#include "platform/base/JsonWriter.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

namespace murbo {
namespace {

constexpr std::size_t longestLine = 16 << 20; // bytes

bool isBlank(const std::string& line) {
    return line.find_first_not_of(" \t\r\n") == line.npos;
}

void put(std::string& text, const char* name, const std::string& json) {
    text.append(",\"").append(name).append("\":").append(json);
}

std::string inQuotes(const std::string& words) {
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.text(Text::repaired(words));
    return writer.finish();
}

}

Script::Script(ProjectDocument& opened) : document(opened) {
    auto& editor = document.editor();
    connect(&editor, &Editor::said, this,
            [this](const QString& words) { current.toast = words.toStdString(); });
    connect(&editor, &Editor::stepMade, this, [this](const QString& name, bool byTimer) {
        if (!byTimer) current.step = name.toStdString();
    });
    connect(&document, &ProjectDocument::told, this,
            [this](const QString& words) { current.unsaved = words.toStdString(); });
    connect(
        &editor, &Editor::idle, this, [this] { finish(); }, Qt::QueuedConnection);
}

bool Script::run(const std::string& line, std::function<void(const std::string&)> answer) {
    if (isBlank(line)) return false;
    current = {};
    answering = std::move(answer);
    try {
        perform(line);
    } catch (const std::bad_alloc&) {
        current.error = "There is not enough memory.";
    } catch (const std::exception& error) {
        current.error = error.what();
    }
    finish();
    return true;
}

void Script::perform(const std::string& line) {
    if (line.size() > longestLine) throw Problem("This line is too long.");
    const auto json = Json::parse(line);
    const auto root = json.root();
    if (!root.isList() || root.size() == 0 || !root.element(0).isText())
        throw Problem("A list is expected that starts with a command's name.");
    const auto& name = root.element(0).text();
    const auto* command = CommandTable::find(name);
    if (!command) throw Problem("There is no command “" + Text::beginning(name, 100) + "”.");
    current.namesStep = name != "undo" && name != "redo" && name != "wait";
    current.value = command->run(document.editor(), root);
}

void Script::finish() {
    if (!answering || document.editor().isBusy()) return;
    // Whatever else was said, that work is not on disk comes first.
    if (current.unsaved) document.editor().say(*current.unsaved);
    std::string text = current.error ? "{\"ok\":false" : "{\"ok\":true";
    if (current.error) put(text, "error", inQuotes(*current.error));
    if (current.toast && !current.error) put(text, "toast", inQuotes(*current.toast));
    if (current.step && current.namesStep && !current.error) put(text, "step", inQuotes(*current.step));
    if (current.value) put(text, "value", *current.value);
    std::exchange(answering, {})(text + "}");
}

}
