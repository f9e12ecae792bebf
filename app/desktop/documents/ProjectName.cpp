#include "app/desktop/documents/ProjectName.h"

#include "core/model/package/ProjectPackage.h"
#include "platform/base/Text.h"

namespace murbo::ProjectName {
namespace {

constexpr std::size_t maxBytes = 255; // of a file's name, on every file system in use

}

std::string fault(const std::string& given) {
    const auto name = Text::trimmed(given);
    if (name.empty()) return "Give the project a name.";
    if (name.find('/') != name.npos || name.starts_with('.'))
        return "A project's name holds no slash and begins with no point.";
    if (package(name, "").string().size() > maxBytes) return "This name is too long.";
    return "";
}

std::filesystem::path package(const std::string& name, const std::filesystem::path& folder) {
    const auto ending = std::string(".") + ProjectPackage::fileExtension;
    return folder / (name.ends_with(ending) ? name : name + ending);
}

std::string free(const std::filesystem::path& folder) {
    std::error_code unknown; // what can't be looked at is refused when the project is made
    std::string name = "Untitled";
    for (int number = 2; std::filesystem::exists(package(name, folder), unknown); ++number)
        name = "Untitled " + std::to_string(number);
    return name;
}

std::filesystem::path tidy(const std::filesystem::path& package) {
    const auto whole = std::filesystem::absolute(package).lexically_normal();
    return whole.has_filename() ? whole : whole.parent_path();
}

}
