#include "app/headless/Headless.h"

#include <csignal>

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    return murbo::Headless::run(murbo::Arguments({words, words + count}));
}
