#pragma once

#include "core/model/ModelCodec.h"

#include <algorithm>
#include <map>
#include <string>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {

/// Projects and other JSON as approved texts have them: what has changed, a line for each place, with short
/// names for ids and no time of day.
class Written {
public:
    using json = nlohmann::json;

    /// Ids as "C1" where only their first part is not zero, else as "new1" in the order in which they appear.
    std::string shortened(const std::string& text) {
        constexpr std::size_t length = 36;
        std::string made;
        for (std::size_t at = 0; at < text.size();) {
            const bool likely = at + length <= text.size() && text[at + 8] == '-' && text[at + 13] == '-';
            if (likely && UUID::parse(std::string_view(text).substr(at, length)))
                made += name(text.substr(at, length)), at += length;
            else
                made += text[at++];
        }
        return made;
    }

    json of(const Project& project) {
        auto made = json::parse(shortened(Codec::encode(project)));
        for (const auto& [source, transcript] : project.transcripts)
            made["transcripts"][shortened(source.text())] = json::parse(shortened(Codec::encode(transcript)));
        return byId(made);
    }

    /// Lists of records as objects by their ids, and the ids in their order: so one that moves is not
    /// another. Other lists are one value.
    static json byId(const json& value) {
        if (!value.is_structured()) return value;
        if (value.is_array()) return list(value);
        auto made = json::object();
        for (const auto& [name, one] : value.items()) made[name] = byId(one);
        if (made.contains("by") && made.value("at", 0.0) > 8e8) made["at"] = "now";
        return made;
    }

    /// What differs, a line for each place.
    static std::string changes(const json& before, const json& after) {
        std::string lines;
        for (const auto& step : json::diff(before, after)) {
            const json::json_pointer at(step["path"].get<std::string>());
            const auto& kind = step["op"];
            if (kind == "remove")
                lines += fmt::format("  - {}\n", at.to_string());
            else if (kind == "add")
                lines += fmt::format("  + {} {}\n", at.to_string(), shown(step["value"]));
            else
                lines += fmt::format("  = {} {} -> {}\n", at.to_string(), shown(before.at(at)),
                                     shown(step["value"]));
        }
        return lines;
    }

private:
    static json list(const json& value) {
        const auto has = [&](const char* key) {
            return std::ranges::all_of(value, [&](const json& one) { return one.contains(key); });
        };
        const auto* key = has("id") ? "id" : has("line") ? "line" : nullptr;
        if (!key) return value.dump();
        auto made = json::object();
        std::string order;
        for (const auto& one : value) {
            auto place = one.at(key).get<std::string>();
            while (made.contains(place)) place += "~";
            order += (order.empty() ? "" : " ") + place;
            (made[place] = byId(one)).erase(key);
        }
        made["order"] = order;
        return made;
    }

    static std::string shown(const json& value) {
        const bool isList = value.is_string() && value.get_ref<const std::string&>().starts_with("[");
        return isList ? value.get<std::string>() : value.dump();
    }

    const std::string& name(const std::string& id) {
        auto& name = names[id];
        if (!name.empty()) return name;
        const bool fixed = id.substr(8) == "-0000-0000-0000-000000000000";
        const auto first = id.find_first_not_of('0');
        return name = !fixed      ? fmt::format("new{}", ++given)
                      : first < 8 ? id.substr(first, 8 - first)
                                  : "nil";
    }

    std::map<std::string, std::string> names;
    int given = 0;
};

}
