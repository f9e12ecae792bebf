#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// The words of the command line, the program's own path first. An option is any word that equals it; the
/// first one counts.
class Arguments {
public:
    explicit Arguments(std::vector<std::string> given) : words(std::move(given)) {}

    bool has(std::string_view option) const;

    /// The word after an option. Nothing where the option is absent or last.
    std::optional<std::string> value(std::string_view option) const;

    /// All words after an option where there are at least `min`; nothing otherwise.
    std::optional<std::vector<std::string>> after(std::string_view option, std::size_t min) const;

    /// The first word after the program's path; empty where there is none.
    std::string first() const { return words.size() > 1 ? words[1] : ""; }

    /// Words without some options, which may stand anywhere among them; those of `valued` go with the word
    /// after them.
    static std::vector<std::string> without(std::initializer_list<std::string_view> options,
                                            std::initializer_list<std::string_view> valued,
                                            const std::vector<std::string>& words);

private:
    std::vector<std::string> words;
};

}
