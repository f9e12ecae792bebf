#include "app/options/Options.h"

namespace murbo::Options {
namespace {

constexpr Option table[] = {
    {"--mcp", "", "Connects an AI app, which starts it, with the project that is open.", 0, Program::bridge},
    {"--set-up-claude", "", "Lets Claude Desktop start Murbo's connection.", 0, Program::bridge},
    {"--serve", "<project>", "Keeps a project open to AI apps, with no window, until Ctrl-C.", 1,
     Program::session},
    {"--add-files", "<project> <path>...",
     "Adds movie files, or folders of them. A file of up to ten minutes becomes a clip.", 2,
     Program::headless},
    {"--add-stream", "<project> <recording> [<markers>]",
     "Adds a stream recording, with a clip round each marker. The markers file is found beside it.", 2,
     Program::headless},
    {"--transcribe", "<project> all | <tag>,<tag>,...", "Writes down what is said in all clips, or in some.",
     2, Program::headless},
    {"--new", "<project>", "Makes an empty project: a folder whose name ends in .mbproj.", 1,
     Program::headless},
    {"--summary", "<project>", "Tells what is in a project.", 1, Program::headless},
    {"--still", "<project> <video> <seconds>,... <folder>",
     "Writes pictures of a video, by its tag, as JPEG files.", 4, Program::headless},
    {"--export", "<project> <video> <file> [--fps <rate>] [--srt]",
     "Writes a video as an MPEG-4 movie, and with --srt its subtitles beside it.", 3, Program::headless},
    {"--describe", "<project> all | <tag>,<tag>,... [--yes]",
     "Has a model give clips a title and a summary. What it costs is asked first; --yes agrees to it.", 2,
     Program::session},
    {"--ideas", "<project> [<instruction>] [--aspect <aspect>] [--yes]",
     "Has a model propose videos, which wait in the project as ideas.", 1, Program::session},
    {"--cut", "<project> <instruction> [--aspect 9:16|16:9|1:1|4:5] [--yes]",
     "Has a model cut a video from the footage to your words.", 2, Program::session},
    {"--revise", "<project> <video> <instruction> [--yes]",
     "Has a model change a video's cuts to your words. Your trims stay.", 3, Program::session},
    {"--look", "<project> <video> [--yes]",
     "Has a model choose a video's framing, punch-ins, big captions and overlays.", 2, Program::session},
    {"--sound", "<project> <video> [--yes]", "Has a model choose sounds from your library for a video.", 2,
     Program::session},
    {"--fix-words", "<project> all | <tag>,<tag>,... [--yes]",
     "Has a model correct what was misheard in clips.", 2, Program::session},
    {"--spent", "<project>", "Says what models cost in a project, by day, task and model.", 1,
     Program::headless},
    {"--script", "<project> [<file>]",
     "Edits a project by commands, one JSON array a line, from a file or standard input.", 1,
     Program::session},
    {"--open", "<project>", "Opens a project in a window; murbo alone opens what was open last.", 1,
     Program::desktop},
    {"--pictures", "<folder> [--show <view>] [--size <width>,<height>]",
     "Writes pictures of the windows, of a project with --open.", 1, Program::desktop},
    {"--help", "", "Shows this.", 0, Program::launcher},
    {"--version", "", "Shows the version.", 0, Program::headless},
};

}

std::span<const Option> all() {
    return table;
}

std::optional<Match> match(const Arguments& arguments) {
    for (const auto& option : table)
        if (auto words = arguments.after(option.name, option.minWords))
            return Match{&option, std::move(*words)};
    return {};
}

std::string whyNoMatch(const Arguments& arguments) {
    for (const auto& option : table)
        if (arguments.has(option.name))
            return std::string("A word is missing: murbo ") + option.name + " " + option.words;
    return "Murbo has no command “" + arguments.first() + "”.";
}

std::string usage() {
    std::string text = "Murbo cuts short videos out of long footage.\n";
    for (const auto& option : table)
        text.append("\n  murbo ")
            .append(option.name)
            .append(*option.words ? " " : "")
            .append(option.words)
            .append("\n      ")
            .append(option.meaning)
            .append("\n");
    return text;
}

}
