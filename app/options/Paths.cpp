#include "app/options/Paths.h"

namespace fs = std::filesystem;

namespace murbo {

fs::path Paths::absolute(const std::string& word) {
    std::error_code error;
    const auto typed = fs::absolute(word, error);
    auto tidy = typed.lexically_normal();
    if (!tidy.has_filename() && tidy.has_relative_path()) tidy = tidy.parent_path();
    // After a symbolic link ".." may lead elsewhere than it reads.
    const bool same = word.find("..") == word.npos || fs::equivalent(typed, tidy, error) || error;
    return same ? tidy : fs::weakly_canonical(typed, error);
}

}
