#include "app/options/Paths.h"

namespace fs = std::filesystem;

namespace murbo {

fs::path Paths::absolute(const std::string& word) {
    std::error_code error;
    const auto typed = fs::absolute(word, error);
    auto tidy = typed.lexically_normal();
    // After a symbolic link ".." may lead elsewhere than it reads, also for what is not there yet.
    if (word.find("..") != word.npos && !fs::equivalent(typed, tidy, error)) {
        const auto led = fs::weakly_canonical(typed, error);
        if (!led.empty()) tidy = led;
    }
    return !tidy.has_filename() && tidy.has_relative_path() ? tidy.parent_path() : tidy;
}

}
