#include "app/paid/PaidCommands.h"

#include "app/editor/EndSignals.h"
#include "app/editor/ProjectDocument.h"
#include "app/editor/commands/FootageAICommands.h"
#include "app/editor/commands/VideoAICommands.h"
#include "app/options/Ending.h"
#include "app/options/Paths.h"
#include "app/paid/TerminalConsent.h"
#include "core/ai/Brief.h"
#include "core/model/ProjectSummary.h"
#include "platform/base/Cancelled.h"
#include "platform/base/CommaList.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"
#include "platform/net/OpenRouterAddress.h"

#include <QEventLoop>
#include <algorithm>
#include <cstdio>
#include <set>

#include <fmt/format.h>

namespace murbo::PaidCommands {
namespace {

using Words = std::vector<std::string>;

/// What a command takes, beside its project.
struct PaidOrder {
    Words words; ///< those of its own after the project, up to an option that is none of its own
    Video::Aspect aspect = Video::Aspect::vertical;
    Consent consent = Consent::asked;

    std::string word(std::size_t at) const { return at < words.size() ? words[at] : ""; }
};

Video::Aspect aspect(const Arguments& arguments) {
    const auto word = arguments.value("--aspect");
    if (!word) return Video::Aspect::vertical;
    if (const auto known = fromRawText<Video::Aspect>(*word)) return *known;
    throw Problem("There is no aspect " + *word + ": it is 9:16, 16:9, 1:1 or 4:5.");
}

Consent consent(const Arguments& arguments) {
    if (arguments.has("--yes")) return Consent::given;
    return TerminalConsent::isPossible() ? Consent::asked : Consent::lacking;
}

/// The video of a tag, which may be typed in either case.
UUID video(const Editor& editor, const std::string& tag) {
    for (const auto& each : editor.project().videos)
        if (Text::sameIgnoringCase(each.tag(), tag)) return each.id;
    throw Problem("The project has no video " + tag + ".");
}

/// The clips of a list of tags, exactly as they are; "all" leaves out rejected ones.
std::vector<UUID> clips(const Editor& editor, const std::string& word) {
    const auto listed = CommaList::entries(word);
    const std::set<std::string_view> tags(listed.begin(), listed.end());
    std::vector<UUID> found;
    for (const auto& clip : editor.project().clips)
        if (word == "all" ? clip.rating != -1 : tags.contains(clip.tag())) found.push_back(clip.id);
    return found;
}

using Start = OutcomeRef (*)(Editor&, const PaidOrder&);

/// Clips that are named by none of the tags leave nothing to do, which is no failure.
template <OutcomeRef (*start)(Editor&, const std::vector<UUID>&, Consent)>
OutcomeRef onClips(Editor& editor, const PaidOrder& order) {
    const auto chosen = clips(editor, order.word(0));
    return chosen.empty() ? std::make_shared<Outcome>() : start(editor, chosen, order.consent);
}

template <OutcomeRef (*start)(Editor&, const std::optional<UUID>&, Consent)>
OutcomeRef onVideo(Editor& editor, const PaidOrder& order) {
    return start(editor, video(editor, order.word(0)), order.consent);
}

OutcomeRef ideas(Editor& editor, const PaidOrder& order) {
    return VideoAICommands::findIdeas(editor, {order.word(0), {}, order.aspect}, order.consent);
}

OutcomeRef cut(Editor& editor, const PaidOrder& order) {
    return VideoAICommands::cutToInstruction(editor, {order.word(0), {}, order.aspect}, order.consent);
}

OutcomeRef revise(Editor& editor, const PaidOrder& order) {
    return VideoAICommands::reviseCuts(editor, video(editor, order.word(0)), order.word(1), order.consent);
}

struct PaidCommand {
    std::string_view option;
    Start start;
    std::size_t words = 1; ///< at most, after the project
};

constexpr PaidCommand commands[] = {
    {"--describe", onClips<FootageAICommands::describeClips>},
    {"--ideas", ideas},
    {"--cut", cut},
    {"--revise", revise, 2},
    {"--look", onVideo<VideoAICommands::lookByAI>},
    {"--sound", onVideo<VideoAICommands::soundByAI>},
    {"--fix-words", onClips<FootageAICommands::fixWords>},
};

/// Words too many are refused: an instruction without quotes would be paid for, and lose all but its start.
PaidOrder order(const PaidCommand& command, const Arguments& arguments, const Words& words) {
    PaidOrder order;
    const auto isOption = [](const std::string& word) { return word.starts_with("--"); };
    const auto own = Arguments::without({"--yes"}, {"--aspect"}, {words.begin() + 1, words.end()});
    order.words.assign(own.begin(), std::ranges::find_if(own, isOption));
    if (order.words.size() > command.words)
        throw Problem(fmt::format("“{}” is one word too many. Put words that belong together in quotes.",
                                  order.words[command.words]));
    order.aspect = aspect(arguments);
    order.consent = consent(arguments);
    return order;
}

const PaidCommand* find(std::string_view option) {
    const auto* found = std::ranges::find(commands, option, &PaidCommand::option);
    return found == std::end(commands) ? nullptr : found;
}

void print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

/// "V8 “title”, 0:42, 3 cuts."
std::string inWords(const Video& video) {
    return fmt::format("{} “{}”, {}, {} cut{}.", video.tag(), Brief::oneLine(video.title),
                       ProjectSummary::clock(video.length()), video.cuts.size(),
                       video.cuts.size() == 1 ? "" : "s");
}

std::size_t waitingIdeas(const Editor& editor) {
    const auto& ideas = editor.project().ideas;
    return ideas ? ideas->size() : 0;
}

/// What was said, the ideas that are new, and the video that was made.
void printResults(const Editor& editor, const Outcome& outcome, std::size_t ideasBefore) {
    for (const auto& line : outcome.said) print(line);
    for (auto at = ideasBefore; at < waitingIdeas(editor); ++at)
        print(Brief::oneLine((*editor.project().ideas)[at].title));
    if (const auto* video = outcome.video ? editor.video(*outcome.video) : nullptr) print(inWords(*video));
}

/// Runs the session until nothing that was set off is under way.
void waitUntilIdle(Editor& editor) {
    QEventLoop loop;
    QObject::connect(&editor, &Editor::idle, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    while (editor.isBusy()) loop.exec();
}

void showLabels(Editor& editor) {
    QObject::connect(&editor.work, &Work::labelChanged, &editor, [&editor] {
        if (const auto& label = editor.work.label()) std::fputs((*label + "\n").c_str(), stderr);
    });
}

/// Whether all of it was done. Throws what failed as a whole.
bool perform(const PaidCommand& command, const Arguments& arguments, const Words& words) {
    OpenRouterAddress::base(); // before anything is read
    const auto wanted = order(command, arguments, words);
    const EndSignals endings; // before the threads of the session, which take over what is blocked
    const auto document = ProjectDocument::open(Paths::absolute(words[0]));
    auto& editor = document->editor();
    const auto ideasBefore = waitingIdeas(editor);
    const TerminalConsent question(editor, endings);
    showLabels(editor);
    bool interrupted = false;
    QObject::connect(&endings, &EndSignals::ending, &editor, [&] {
        interrupted = true;
        editor.work.cancelAll();
    });
    const auto outcome = command.start(editor, wanted);
    waitUntilIdle(editor);
    document->close();
    printResults(editor, *outcome, ideasBefore);
    if (document->unsaved()) throw Problem(*document->unsaved());
    if (interrupted) throw Cancelled();
    if (outcome->failure) throw Problem(*outcome->failure);
    return !outcome->failed && !outcome->stopped;
}

}

bool has(std::string_view option) {
    return find(option) != nullptr;
}

int run(std::string_view option, const Arguments& arguments, const Words& words) {
    bool done = false;
    const int code = Ending::of([&] { done = perform(*find(option), arguments, words); });
    return code == 0 && !done ? 1 : code;
}

}
