#pragma once

#include "core/model/Project.h"

#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// A word, or some in a row, that was heard wrongly, and what was said. It can be put right wherever else it
/// was heard: as whole words, with the letters A to Z in either case.
struct WordCorrection {
    std::string from;
    std::string to;

    /// What makes one text of a line into another: each run of words that became other words, in order.
    /// Words that only came or went are none. Nothing for very long lines.
    static std::vector<WordCorrection> between(std::string_view before, std::string_view after);

    /// A text with it put right, and at how many places that is.
    struct Righted {
        std::string text;
        int places = 0;
    };
    Righted in(std::string_view text) const;

    /// At how many places it still stands in what is said in a project.
    int places(const Project& project) const;
    /// Puts it right there, and in captions that were broken by hand.
    void apply(Project& project) const;

    bool operator==(const WordCorrection&) const = default;
};

}
