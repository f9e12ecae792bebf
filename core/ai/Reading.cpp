#include "core/ai/Reading.h"

#include "core/ai/Reply.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {
namespace {

const std::string& rule() {
    static const auto text = fmt::format(
        "You can only cut from clips whose lines you have read. To read more before answering, reply with "
        "JSON only:\n"
        "{{\"read\": [\"C05\", \"C07\"]}}\n"
        "You will then get their lines. Ask only for what you need; you can ask {} times.",
        Reading::maxRounds);
    return text;
}

const Clip* clipOf(const Project& project, const UUID& id) {
    const auto found = std::find_if(project.clips.begin(), project.clips.end(),
                                    [&](const Clip& clip) { return clip.id == id; });
    return found == project.clips.end() ? nullptr : &*found;
}

bool contains(const std::vector<UUID>& ids, const UUID& id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

}

Reading::Reading(const Opening& given, const Project& now)
    : kept(std::make_shared<const Project>(now)), pieces(std::make_shared<const Said>(*kept)) {
    for (const auto* clip : choose(given.scope))
        if (clip->rating != -1 || contains(given.given, clip->id)) scope.push_back(clip);
    for (const auto* clip : choose(given.given))
        if (std::find(scope.begin(), scope.end(), clip) != scope.end()) read.push_back(clip);
    conversation = {Ask::Model::strong,
                    {{Ask::Message::Role::system, given.system + "\n\n" + rule()},
                     {Ask::Message::Role::user, opening(given.words)}},
                    given.maxTokens,
                    given.thinking};
}

Brief::Clips Reading::choose(const std::vector<UUID>& ids) const {
    Brief::Clips chosen;
    std::set<UUID> known;
    for (const auto& id : ids)
        if (const auto* clip = clipOf(*kept, id); clip && known.insert(id).second) chosen.push_back(clip);
    return chosen;
}

std::string Reading::opening(const std::string& words) const {
    auto text = words;
    if (const auto notes = Brief::notes(scope, *kept); !notes.empty())
        text += "\n\nThe owner's notes on the footage:\n" + notes;
    text += "\n\nEvery clip, a line each:\n" + Brief::digest(scope, *kept, *pieces) + "\n\n";
    if (read.empty())
        return text +
               "You have not been given any clip's lines yet. Work out from the lines above which clips "
               "matter, and ask to read those.";
    return text + "The lines you can read now:\n\n" + Brief::lines(read, *kept, *pieces);
}

Brief::Clips Reading::wantedIn(std::string_view reply) const {
    const auto object = Reply::object(reply);
    const auto& list = Reply::member(object, "read");
    std::set<std::string> tags;
    if (!list.is_array()) return {};
    for (const auto& entry : list) {
        if (!entry.is_string()) return {};
        tags.insert(Text::lowercased(Text::trimmedOfBlanks(entry.get<std::string>())));
    }
    Brief::Clips found;
    for (const auto* clip : scope)
        if (tags.contains(Text::lowercased(clip->tag())) &&
            std::find(read.begin(), read.end(), clip) == read.end())
            found.push_back(clip);
    return found;
}

bool Reading::goesOn(std::string_view reply) {
    wanted = granted < maxRounds ? wantedIn(reply) : Brief::Clips{};
    if (wanted.empty()) return false;
    ++granted;
    read.insert(read.end(), wanted.begin(), wanted.end());
    auto lines = Brief::lines(wanted, *kept, *pieces);
    if (granted == maxRounds) lines += "\n\nThat is all you can read. Answer now with what you have.";
    conversation.messages.push_back({Ask::Message::Role::assistant, std::string(reply)});
    conversation.messages.push_back({Ask::Message::Role::user, std::move(lines)});
    return true;
}

std::vector<Cut> Reading::cuts(const nlohmann::json& value) const {
    std::set<UUID> clips;
    for (const auto* clip : read) clips.insert(clip->id);
    return pieces->cuts(value, &clips);
}

}
