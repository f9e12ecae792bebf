#pragma once

#include "app/options/Arguments.h"
#include "core/model/Project.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// The headless commands. Each takes the whole command line and the words after its own option, prints what
/// it did, and throws a Problem where it could not.
namespace Commands {

using Words = std::vector<std::string>;

void addFiles(const Arguments& arguments, const Words& words);   ///< --add-files
void addStream(const Arguments& arguments, const Words& words);  ///< --add-stream
void transcribe(const Arguments& arguments, const Words& words); ///< --transcribe
void create(const Arguments& arguments, const Words& words);     ///< --new
void summary(const Arguments& arguments, const Words& words);    ///< --summary
void stills(const Arguments& arguments, const Words& words);     ///< --still
void movie(const Arguments& arguments, const Words& words);      ///< --export
void spent(const Arguments& arguments, const Words& words);      ///< --spent
void version(const Arguments& arguments, const Words& words);    ///< --version

/// A project as a command finds it.
struct Opened {
    std::filesystem::path package; ///< absolute
    Project project;
    std::set<UUID> missing; ///< the sources whose file is not there
};

/// Throws ProjectError.
Opened open(const std::string& word);

/// Puts a line on standard output. Throws a Problem where it can't be written.
void print(const std::string& line);

/// Puts a line on standard error: what a person is to know, while the command goes on.
void remark(const std::string& line);

/// Why a file can't be used as footage, in words for the owner; nothing where it can.
std::optional<std::string> whyUnusable(const std::filesystem::path& file);

}

}
