#include "app/mcp/MCPActivity.h"

#include "core/ai/Brief.h"
#include "platform/base/Text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {

namespace {

constexpr std::size_t maxCharacters = 40;
constexpr std::size_t maxLines = 3;

/// The first forty characters, and a mark where there were more.
std::string shortened(const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80 && count++ == maxCharacters)
            return text.substr(0, at) + "…";
    return text;
}

std::string item(const std::string& key, const nlohmann::json& value) {
    if (value.is_array()) return fmt::format("{} {}", value.size(), key);
    if (value.is_object()) return key;
    const auto text = Brief::oneLine(
        value.is_string() ? value.get<std::string>()
                          : value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
    return (key == "video" ? "" : key + " ") + shortened(text);
}

}

void MCPActivity::add(Entry entry) {
    all.push_back(std::move(entry));
    if (all.size() > maxKept) all.pop_front();
}

std::string MCPActivity::brief(const nlohmann::json& arguments) {
    std::string text;
    if (!arguments.is_object()) return text;
    const auto add = [&](const std::string& key, const nlohmann::json& value) {
        text += (text.empty() ? "" : ", ") + item(Brief::oneLine(key), value);
    };
    if (const auto video = arguments.find("video"); video != arguments.end()) add("video", *video);
    for (const auto& [key, value] : arguments.items())
        if (key != "video") add(key, value);
    return text;
}

std::string MCPActivity::firstLines(const std::string& text) {
    std::string said;
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size() && count < maxLines;) {
        const auto end = std::min(text.find('\n', at), text.size());
        const auto line = text.substr(at, end - at);
        at = end + 1;
        if (Text::trimmed(line).empty()) continue;
        said += (count++ ? "\n" : "") + line;
    }
    return said;
}

bool MCPActivity::same(const History::Step& one, const History::Step& other) {
    return one.name == other.name && one.before == other.before && one.after == other.after;
}

}
