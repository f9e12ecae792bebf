#include "app/headless/Headless.h"

#include "app/headless/Commands.h"

#include <cstdlib>

#include <cxxabi.h>
#include <fmt/format.h>

namespace murbo {

namespace {

void help(const Arguments&, const Commands::Words&) {
    std::fputs(Headless::usage().c_str(), stdout);
}

struct Command {
    const char* option;
    const char* words;
    const char* meaning;
    std::size_t least; ///< words that must follow the option
    void (*run)(const Arguments&, const Commands::Words&);
};

// In the order in which they are tested: of two on one line the upper one runs.
constexpr Command commands[] = {
    {"--mcp", "", "Connects an AI app (not in this version yet).", 0, Commands::connect},
    {"--add-files", "<project> <path>...",
     "Adds movie files, or folders of them. A file of up to ten minutes becomes a clip.", 2,
     Commands::addFiles},
    {"--add-stream", "<project> <recording> [<markers>]",
     "Adds a stream recording, with a clip round each marker. The markers file is found beside it.", 2,
     Commands::addStream},
    {"--transcribe", "<project> all | <tag>,<tag>,...", "Writes down what is said in all clips, or in some.",
     2, Commands::transcribe},
    {"--new", "<project>", "Makes an empty project: a folder whose name ends in .mbproj.", 1,
     Commands::create},
    {"--summary", "<project>", "Tells what is in a project.", 1, Commands::summary},
    {"--still", "<project> <video> <seconds>,... <folder>",
     "Writes pictures of a video, by its tag, as JPEG files.", 4, Commands::stills},
    {"--export", "<project> <video> <file> [--fps <rate>] [--srt]",
     "Writes a video as an MPEG-4 movie, and with --srt its subtitles beside it.", 3, Commands::movie},
    {"--help", "", "Shows this.", 0, help},
    {"--version", "", "Shows the version.", 0, Commands::version},
};

/// The name of an error's type, without the wrapper that holds the error that it came from.
std::string kind(const std::exception& error) {
    int failed = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(error).name(), nullptr, nullptr, &failed), &std::free);
    if (!name) return typeid(error).name();
    constexpr std::string_view wrapper = "std::_Nested_exception<";
    const std::string_view whole = name.get();
    if (!whole.starts_with(wrapper)) return std::string(whole);
    return std::string(whole.substr(wrapper.size(), whole.size() - wrapper.size() - 1));
}

/// An error's kind and words, with those of the error that it came from.
std::string description(const std::exception& error) {
    auto own = kind(error) + ": " + error.what();
    try {
        std::rethrow_if_nested(error);
    } catch (const std::exception& cause) {
        return own + "; from " + description(cause);
    }
    return own;
}

int report(const std::exception& error, const std::string& words) {
    auto text = "error: " + words + "\n";
    if (std::getenv("MURBO_DEBUG")) text += description(error) + "\n";
    // Where even that can't be written, it is told beside it.
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) std::fputs(text.c_str(), stderr);
    return 1;
}

int run(const Command& command, const Arguments& arguments, const Commands::Words& words) try {
    command.run(arguments, words);
    return 0;
} catch (const std::bad_alloc& error) {
    return report(error, "There is not enough memory.");
} catch (const std::exception& error) {
    return report(error, error.what());
}

}

std::optional<int> Headless::run(const Arguments& arguments) {
    for (const auto& command : commands)
        if (const auto words = arguments.behind(command.option, command.least))
            return murbo::run(command, arguments, *words);
    return {};
}

std::string Headless::usage() {
    std::string text = "Murbo cuts short videos out of long footage.\n";
    for (const auto& [option, words, meaning, least, run] : commands)
        text += fmt::format("\n  murbo {}{}{}\n      {}\n", option, *words ? " " : "", words, meaning);
    return text;
}

}
