#pragma once

#include "tests/MadeMedia.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <regex>
#include <string>

#include <fmt/format.h>

namespace murbo {

/// Short names in the lines of a tour for what is another one on every machine: ids and folders.
class TourNames {
public:
    explicit TourNames(std::filesystem::path ofTest) : folder(std::move(ofTest)) {}

    /// "@name" as the id that it always has, "$folder" as the test's own, "$made" as that of made media.
    std::string identified(std::string line) {
        replace(line, "$folder", folder.string());
        replace(line, "$made", made::folder().string());
        static const std::regex name("@[a-z][A-Za-z0-9]*");
        std::smatch found;
        while (std::regex_search(line, found, name)) {
            const auto word = found.str();
            std::uint64_t hash = 1469598103934665603U;
            for (const char letter : word)
                hash = (hash ^ static_cast<unsigned char>(letter)) * 1099511628211U;
            const auto id = fmt::format("{:08X}-0000-4000-8000-{:012X}", hash >> 32, hash & 0xFFFFFFFFFFFF);
            byId[id] = word;
            line.replace(static_cast<std::size_t>(found.position()), word.size(), id);
        }
        return line;
    }

    /// The same on every machine: ids by their names or the order of their coming, and no folder of a test's.
    std::string readable(std::string whole) {
        static const std::regex id("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
        std::string made;
        std::size_t last = 0, fresh = 0;
        for (std::sregex_iterator at(whole.begin(), whole.end(), id), end; at != end; ++at) {
            auto& name = byId[at->str()];
            if (name.empty()) name = "#" + std::to_string(++fresh);
            made += whole.substr(last, static_cast<std::size_t>(at->position()) - last) + name;
            last = static_cast<std::size_t>(at->position() + at->length());
        }
        made += whole.substr(last);
        static const std::regex size("[0-9.]+ KiB"), coded("image://recording/[^/]*/");
        made = std::regex_replace(made, size, "some KiB"); // each ffmpeg writes another
        made = std::regex_replace(made, coded, "image://recording/");
        replace(made, folder.string(), "~");
        replace(made, made::folder().string(), "~made");
        return made;
    }

private:
    static void replace(std::string& in, const std::string& word, const std::string& by) {
        for (auto at = in.find(word); at != in.npos; at = in.find(word, at + by.size()))
            in.replace(at, word.size(), by);
    }

    std::filesystem::path folder;
    std::map<std::string, std::string> byId;
};

}
