#pragma once

#include "app/editor/Editor.h"
#include "app/editor/Pick.h"

#include <optional>
#include <string>

namespace murbo {

/// Finding what a text names in a session, the way people and scripts name it: by tag, by file name, by
/// identity, or by its place in the open video, counted from 1, as "cut 2". Nothing where it names nothing.
namespace Named {

std::optional<UUID> video(const Editor& editor, const std::string& name);
std::optional<UUID> clip(const Editor& editor, const std::string& name);
std::optional<UUID> bookmark(const Editor& editor, const std::string& name);
std::optional<UUID> source(const Editor& editor, const std::string& name);

/// An idea that waits: "idea 1".
std::optional<UUID> idea(const Editor& editor, const std::string& name);

/// A line and the source that it is said on.
struct FoundLine {
    UUID source;
    Line line;
};
std::optional<FoundLine> line(const Editor& editor, const std::string& name);

/// A block of a video; "sound" finds sounds and songs. Of other videos than the open one only by identity.
std::optional<UUID> block(const Editor& editor, Pick::Kind kind, const std::string& name);
/// Any cut, shot, overlay, sound or song.
std::optional<UUID> anyBlock(const Editor& editor, const std::string& name);

/// The name of a source's line or note in its clip; its identity where it is in none.
std::string tag(const Editor& editor, const UUID& line);

}

}
