#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/playbooks/Book.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What a person does to the cuts on the timeline. A command with nothing to act on does nothing; one that is
/// refused says so in a toast.
namespace CutCommands {

/// What the source player would put into the video: the marked range, else all that is held. Nothing shorter
/// than 0.1 seconds.
std::optional<Cut> offered(const Editor& editor);
/// The same, or where several clips are picked and no range is marked, each of them.
std::vector<Cut> offeredCuts(const Editor& editor);
/// The cut that is picked.
std::optional<UUID> pickedCut(const Editor& editor);

void addToEnd(Editor& editor);
void insertAtPlayhead(Editor& editor);
/// Puts cuts at a position, at the end without one. They keep their ids where these are free.
void drop(Editor& editor, std::vector<Cut> cuts, std::optional<std::int64_t> at);
void newVideoFromSelection(Editor& editor);

/// Puts a stretch that a playbook draws at a position, at the playhead without one.
void addGenerator(Editor& editor, const Book& book, std::optional<std::int64_t> at);
using GeneratorChange = std::function<void(Generator&)>;
void changeGenerator(Editor& editor, const UUID& cut, const std::string& name, const GeneratorChange& change);
void dragGenerator(Editor& editor, const UUID& cut, const GeneratorChange& change);

void splitAtPlayhead(Editor& editor);
void blade(Editor& editor, double at);
void toggleMuteCuts(Editor& editor, const std::vector<UUID>& cuts);
void removeCut(Editor& editor);
void takeOutQuiet(Editor& editor, const UUID& cut);

/// Pieces of a drag, ended by `endTrim`, which plays the edit back.
void trim(Editor& editor, const UUID& cut, bool start, double to);
void slip(Editor& editor, const UUID& cut, double toStart);
/// The seam after a cut: its end goes to a time of its source, and the next cut's start as far.
void roll(Editor& editor, const UUID& cut, double to);
void endTrim(Editor& editor, const UUID& cut, bool start, const std::string& name);
void move(Editor& editor, const UUID& cut, std::int64_t to);

/// Moves the playhead to the next edit, or the one before.
void jumpToEdit(Editor& editor, bool next);

CommandList table();

}

}
