#include "app/mcp/Serve.h"
#include "app/options/Ending.h"
#include "app/options/Options.h"

#include <QCoreApplication>
#include <csignal>

using namespace murbo;

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(count, words);
    const auto match = Options::match(Arguments({words, words + count}));
    if (match && match->option->name == std::string_view("--serve"))
        return Ending::of([&] { Serve::run(match->words[0]); });
    return Ending::failure("A session can't be driven by lines yet.");
}
