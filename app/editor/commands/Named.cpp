#include "app/editor/commands/Named.h"

#include "core/model/Tags.h"

#include <algorithm>
#include <charconv>

namespace murbo::Named {
namespace {

template <class Records, class Test>
std::optional<UUID> first(const Records& records, Test test) {
    const auto found = std::find_if(records.begin(), records.end(), test);
    return found == records.end() ? std::nullopt : std::optional(found->id);
}

template <class Records>
std::optional<UUID> byTag(const Records& records, const std::string& name) {
    const auto id = UUID::parse(name);
    return first(records, [&](const auto& one) { return id ? one.id == *id : one.tag() == name; });
}

template <class Records>
std::optional<UUID> byId(const Records& records, const UUID& id) {
    return first(records, [&](const auto& one) { return one.id == id; });
}

/// The element at a place counted from 1: "cut 2" among cuts.
template <class Records>
std::optional<UUID> byPlace(const Records& records, std::string_view word, std::string_view name) {
    if (!name.starts_with(word) || name.size() < word.size() + 2 || name[word.size()] != ' ') return {};
    const auto digits = name.substr(word.size() + 1);
    std::size_t place = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), place);
    if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return {};
    if (place < 1 || place > records.size()) return {};
    return records[place - 1].id;
}

std::optional<UUID> blockIn(const Video& video, Pick::Kind kind, const std::string& name) {
    static const Look none;
    const auto& look = video.look ? *video.look : none;
    const auto in = [&](const auto& records, std::string_view word) {
        const auto id = UUID::parse(name);
        return id ? byId(records, *id) : byPlace(records, word, name);
    };
    switch (kind) {
        case Pick::Kind::cut:
            return in(video.cuts, "cut");
        case Pick::Kind::shot:
            return in(look.shots, "shot");
        case Pick::Kind::overlay:
            return in(look.overlays, "overlay");
        case Pick::Kind::sound:
            if (const auto found = in(look.sounds, "sound")) return found;
            return in(look.music, "song");
        case Pick::Kind::music:
            return in(look.music, "song");
        case Pick::Kind::caption:
            break;
    }
    return {};
}

std::optional<FoundLine> lineById(const Project& project, const UUID& id) {
    for (const auto& [source, transcript] : project.transcripts)
        for (const auto& line : transcript.lines)
            if (line.id == id) return FoundLine{source, line};
    return {};
}

}

std::optional<UUID> video(const Editor& editor, const std::string& name) {
    return byTag(editor.project().videos, name);
}

std::optional<UUID> clip(const Editor& editor, const std::string& name) {
    return byTag(editor.project().clips, name);
}

std::optional<UUID> bookmark(const Editor& editor, const std::string& name) {
    return byTag(editor.project().bookmarks, name);
}

std::optional<UUID> idea(const Editor& editor, const std::string& name) {
    const auto& ideas = editor.project().ideas;
    if (!ideas) return {};
    const auto id = UUID::parse(name);
    return id ? byId(*ideas, *id) : byPlace(*ideas, "idea", name);
}

std::optional<UUID> source(const Editor& editor, const std::string& name) {
    const auto& sources = editor.project().sources;
    if (const auto id = UUID::parse(name))
        if (const auto found = byId(sources, *id)) return found;
    return first(sources, [&](const Source& one) { return one.name() == name; });
}

std::optional<FoundLine> line(const Editor& editor, const std::string& name) {
    const auto& project = editor.project();
    if (const auto id = UUID::parse(name)) return lineById(project, *id);
    for (const auto& clip : project.clips) {
        if (!name.starts_with(clip.tag() + ".")) continue;
        for (const auto& [id, tag] : Tags::on(clip.source, project))
            if (tag == name)
                if (const auto found = lineById(project, id)) return found;
    }
    return {};
}

std::optional<UUID> block(const Editor& editor, Pick::Kind kind, const std::string& name) {
    if (const auto* open = editor.video())
        if (const auto found = blockIn(*open, kind, name)) return found;
    if (!UUID::parse(name)) return {};
    for (const auto& video : editor.project().videos)
        if (const auto found = blockIn(video, kind, name)) return found;
    return {};
}

std::optional<UUID> anyBlock(const Editor& editor, const std::string& name) {
    for (const auto kind : {Pick::Kind::cut, Pick::Kind::shot, Pick::Kind::overlay, Pick::Kind::sound})
        if (const auto found = block(editor, kind, name)) return found;
    return {};
}

std::string tag(const Editor& editor, const UUID& line) {
    const auto& project = editor.project();
    for (const auto& entry : project.transcripts) {
        const auto tags = Tags::on(entry.first, project);
        if (const auto found = tags.find(line); found != tags.end()) return found->second;
    }
    return line.text();
}

}
