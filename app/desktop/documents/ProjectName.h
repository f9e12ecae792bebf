#pragma once

#include <filesystem>
#include <string>

namespace murbo {

/// How projects may be called, and where a project of a name lies.
namespace ProjectName {

/// Why nothing can be called that, in the owner's words; empty where it can.
std::string fault(const std::string& name);

/// The package of that name in a folder.
std::filesystem::path package(const std::string& name, const std::filesystem::path& folder);

/// A name that no project in a folder has: "Untitled", "Untitled 2" …
std::string free(const std::filesystem::path& folder);

/// A path as it was given, typed or dropped, in one form for one package: whole, without a slash at its end.
std::filesystem::path tidy(const std::filesystem::path& package);

}

}
