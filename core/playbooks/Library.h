#pragma once

#include "core/model/CaptionStyle.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// The owner's folder of playbooks, caption styles, sounds and music.
namespace Library {

/// Where it is: the setting "libraryFolder", else "Movies/Murbo" in the home folder.
std::filesystem::path folder();

/// Puts another folder in its place for this process; none takes that back. Any thread.
void setOverride(std::optional<std::filesystem::path> folder);

std::filesystem::path playbooks();
std::filesystem::path stylesFile();
std::filesystem::path sounds();
std::filesystem::path music();

/// The owner's caption styles; none where the file is missing or unreadable.
std::vector<CaptionStyle> styles();
/// Throws a Problem where the file can't be written.
void save(const std::vector<CaptionStyle>& styles);

/// A sound file, and the name of the folder within the library that it lies in; empty at the top.
struct AudioFile {
    std::string folder;
    std::filesystem::path file;
    bool operator==(const AudioFile&) const = default;
};

/// The sound files in a folder and in the folders in it, in the order of their names.
std::vector<AudioFile> audioFiles(const std::filesystem::path& folder);

}

}
