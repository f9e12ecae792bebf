#include "app/editor/script/ScriptRun.h"
#include "app/mcp/Serve.h"
#include "app/options/Ending.h"
#include "app/options/Options.h"
#include "app/options/Paths.h"
#include "app/paid/PaidCommands.h"
#include "platform/base/Heap.h"
#include "platform/base/Problem.h"

#include <QCoreApplication>
#include <csignal>

using namespace murbo;

namespace {

void script(const std::vector<std::string>& words) {
    const auto file = words.size() > 1 && !words[1].starts_with("--")
                          ? std::optional(Paths::absolute(words[1]))
                          : std::nullopt;
    ScriptRun run(Paths::absolute(words[0]), file);
    QObject::connect(&run, &ScriptRun::ended, QCoreApplication::instance(), &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QCoreApplication::exec();
    if (run.unsaved()) throw Problem(*run.unsaved());
}

}

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    Heap::keepSmall();
    const QCoreApplication application(count, words);
    const auto match = Options::match(Arguments({words, words + count}));
    const std::string_view option = match ? match->option->name : "";
    if (option == "--serve") return Ending::of([&] { Serve::run(Paths::absolute(match->words[0])); });
    if (option == "--script") return Ending::of([&] { script(match->words); });
    if (PaidCommands::has(option))
        return PaidCommands::run(option, Arguments({words, words + count}), match->words);
    return Ending::failure("This is a part of Murbo: start murbo itself.");
}
