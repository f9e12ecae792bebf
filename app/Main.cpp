#include "app/headless/Headless.h"

#include <csignal>
#include <cstdio>

int main(int count, char** words) {
    using namespace murbo;
    // A reader that has seen enough of the output must not end an export.
    std::signal(SIGPIPE, SIG_IGN);
    if (const auto code = Headless::run(Arguments({words, words + count}))) return *code;
    std::fputs(Headless::usage().c_str(), stdout);
    return 1;
}
