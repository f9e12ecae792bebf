#include "app/options/Ending.h"
#include "app/options/Options.h"
#include "app/options/Screen.h"

#include <csignal>
#include <cstdio>
#include <filesystem>

#include <unistd.h>

using namespace murbo;

namespace {

/// Becomes another program of the set, which stands beside this one. Returns only where it could not.
int become(const std::string& name, char** words) {
    std::error_code error;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto program = own.parent_path() / name;
    execv(program.c_str(), words);
    return Ending::failure("“" + program.string() + "” could not be started. Install Murbo again.");
}

}

int main(int count, char** words) {
    const Arguments arguments({words, words + count});
    const auto match = Options::match(arguments);
    if (count <= 1 && Screen::isThere()) return become("murbo-desktop", words);
    if (!match) {
        std::fputs(Options::usage().c_str(), stdout);
        return count > 1 ? Ending::failure(Options::whyNoMatch(arguments)) : 1;
    }
    // A reader that has seen enough of the output must not end an export: programs of the set inherit this.
    std::signal(SIGPIPE, SIG_IGN);
    switch (match->option->program) {
        case Options::Program::headless:
            return become("murbo-headless", words);
        case Options::Program::session:
            return become("murbo-session", words);
        case Options::Program::desktop:
            return become("murbo-desktop", words);
        case Options::Program::bridge:
            return become("murbo-bridge", words);
        case Options::Program::launcher:
            break;
    }
    std::fputs(Options::usage().c_str(), stdout);
    return 0;
}
