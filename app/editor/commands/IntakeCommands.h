#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/intake/Sources.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// Bringing footage in, and finding it again. What takes long goes on in the background.
namespace IntakeCommands {

/// What is done with footage once it is in.
struct Then {
    bool transcribe = false;
    bool describe = false;
};

void addFiles(Editor& editor, const std::vector<std::filesystem::path>& files, Then then);
void addStream(Editor& editor, const std::filesystem::path& recording,
               const std::optional<std::filesystem::path>& markers, const std::string& note, Then then);

/// The same with files that have been measured, under a name of the owner's for their group; where that is
/// empty it is their folder's.
void add(Editor& editor, const std::vector<MeasuredFile>& files, const std::string& group, Then then);
void addStream(Editor& editor, const MeasuredFile& recording, const Sources::StreamNotes& notes, Then then);

/// Looks in a folder for the files of missing sources, by their names.
void findMissing(Editor& editor, const std::filesystem::path& folder);

CommandList table();

}

}
