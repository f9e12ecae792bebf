#pragma once

#include "app/options/Arguments.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace murbo {

/// What the command line offers. The one table of it: the launcher finds in it which program does the work,
/// and that program finds which work it is.
namespace Options {

/// The programs that stand side by side. Each links what it needs and no more, so that each starts quickly.
enum class Program {
    launcher, ///< `murbo` itself: small, does little, and hands all else on
    headless, ///< `murbo-headless`: commands that need no session
    session,  ///< `murbo-session`: one open project, live
    desktop,  ///< `murbo-desktop`: windows
    bridge    ///< `murbo-bridge`: AI apps start it, and it carries their messages to a session
};

struct Option {
    const char* name;
    const char* words;
    const char* meaning;
    std::size_t minWords; ///< words that must follow
    Program program;
};

/// In the order in which they are tested: of two on one line the upper one counts.
std::span<const Option> all();

struct Match {
    const Option* option;
    std::vector<std::string> words; ///< all that follow it
};

/// The first option that the arguments match; one with too few words matches nothing.
std::optional<Match> match(const Arguments& arguments);

/// Why arguments match nothing, in words for the person: an option with too few words, or none that is known.
std::string whyNoMatch(const Arguments& arguments);

/// All options with their words, one to a line.
std::string usage();

}

}
