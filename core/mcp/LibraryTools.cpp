#include "core/mcp/LibraryTools.h"

#include "core/ai/Brief.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::LibraryTools {

namespace {

using Reply::member;

constexpr std::size_t maxSounds = 300;

std::string line(const Book& book) {
    const auto& playbook = book.playbook;
    auto text = fmt::format("{} “{}” ({})", book.id(), Brief::oneLine(playbook.name),
                            playbook.kind.value_or("overlay"));
    if (playbook.about) text += ": " + Brief::oneLine(*playbook.about);
    std::vector<std::string> names;
    if (playbook.params)
        for (const auto& [name, _] : *playbook.params) names.push_back(name);
    return names.empty() ? text : fmt::format("{}; values: {}", text, fmt::join(names, ", "));
}

std::string name(const Library::AudioFile& sound) {
    const auto file = Text::repaired(sound.file.filename().string());
    return Brief::oneLine(sound.folder.empty() ? file : Text::repaired(sound.folder) + "/" + file);
}

std::string textOf(const nlohmann::json& value) {
    return value.is_string() ? Text::trimmed(value.get<std::string>()) : "";
}

}

std::vector<std::pair<std::string, std::filesystem::path>> sounds() {
    std::vector<std::pair<std::string, std::filesystem::path>> named;
    for (const auto& sound : Library::audioFiles(Library::sounds()))
        named.emplace_back(name(sound), sound.file);
    return named;
}

std::string listPlaybooks() {
    std::string text;
    for (const auto& book : Playbooks::library()) {
        if (!text.empty()) text += '\n';
        text += line(book);
    }
    return text;
}

std::string readPlaybook(const nlohmann::json& arguments) {
    const auto& id = member(arguments, "playbook");
    if (const auto book = Playbooks::find(textOf(id))) return Playbooks::encoded(book->playbook);
    throw Problem(fmt::format("There is no playbook {}; list_playbooks names them.", VideoChange::given(id)));
}

std::string listSounds(const nlohmann::json& arguments) {
    const auto search = textOf(member(arguments, "search"));
    const auto wanted = Text::lowercased(search);
    std::string text;
    std::size_t count = 0;
    for (const auto& [its, _] : sounds()) {
        if (Text::lowercased(its).find(wanted) == std::string::npos) continue;
        if (++count <= maxSounds) text += (text.empty() ? "" : "\n") + its;
    }
    if (count > maxSounds) text += fmt::format("\n… and {} more; search to narrow it.", count - maxSounds);
    if (count > 0) return text;
    if (search.empty()) return "The sound library is empty.";
    return fmt::format("No sound's folder or name holds “{}”.", VideoChange::given(nlohmann::json(search)));
}

std::string writePlaybook(const nlohmann::json& arguments) {
    const auto& json = member(arguments, "playbook");
    if (textOf(json).empty()) throw Problem("Send the playbook's JSON.");
    auto playbook = Playbook::decode(json.get_ref<const std::string&>());
    const auto saved = Playbooks::write(std::move(playbook), {}, "Claude");
    return fmt::format("Saved “{}” to the library as {}, version {}.", Brief::oneLine(saved.playbook.name),
                       saved.id(), saved.playbook.version.value_or(1));
}

}
