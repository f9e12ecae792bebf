#include "app/headless/Headless.h"

#include "app/headless/Commands.h"
#include "app/options/Ending.h"
#include "app/options/Options.h"

#include <string_view>

namespace murbo {
namespace {

struct HeadlessCommand {
    std::string_view option;
    void (*run)(const Arguments&, const Commands::Words&);
};

constexpr HeadlessCommand commands[] = {
    {"--add-files", Commands::addFiles},    {"--add-stream", Commands::addStream},
    {"--transcribe", Commands::transcribe}, {"--new", Commands::create},
    {"--summary", Commands::summary},       {"--still", Commands::stills},
    {"--export", Commands::movie},          {"--version", Commands::version},
    {"--spent", Commands::spent},
};

}

int Headless::run(const Arguments& arguments) {
    if (const auto match = Options::match(arguments))
        for (const auto& command : commands)
            if (command.option == match->option->name)
                return Ending::of([&] { command.run(arguments, match->words); });
    return Ending::failure("This is a part of Murbo: start murbo itself.");
}

}
