#include "app/headless/Commands.h"
#include "app/headless/Interruption.h"
#include "app/options/Paths.h"
#include "core/intake/transcription/Transcription.h"
#include "core/intake/transcription/Transcripts.h"
#include "core/intake/transcription/Whisper.h"
#include "core/model/ProjectSummary.h"
#include "core/model/Settings.h"
#include "core/model/package/Activity.h"
#include "core/model/package/PackageLock.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Cancelled.h"
#include "platform/base/CommaList.h"
#include "platform/base/Problem.h"
#include "platform/base/Tool.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>

#include <fmt/format.h>
#include <unistd.h>

namespace murbo {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t shownLines = 3;

/// The clips that the word asks for and whose footage is there, by their numbers.
std::vector<Clip> clips(const std::string& word, const Commands::Opened& opened) {
    const auto listed = CommaList::entries(word);
    const std::set<std::string_view> tags(listed.begin(), listed.end());
    std::vector<Clip> found;
    std::copy_if(opened.project.clips.begin(), opened.project.clips.end(), std::back_inserter(found),
                 [&](const Clip& clip) {
                     return (word == "all" || tags.contains(clip.tag())) &&
                            !opened.missing.contains(clip.source);
                 });
    std::stable_sort(found.begin(), found.end(),
                     [](const Clip& one, const Clip& other) { return one.number < other.number; });
    return found;
}

/// Names the clips that a failure kept from being listened to, as a next run would be given them.
void remarkLeft(const std::vector<Clip>& wanted, std::size_t from) {
    std::string tags;
    for (; from < wanted.size(); ++from) tags += (tags.empty() ? "" : ",") + wanted[from].tag();
    if (!tags.empty()) Commands::remark("Not transcribed after this: " + tags);
}

/// Says what a person at a terminal would else learn from lines that are nonsense, or too late.
void remarkBefore(const Project& project) {
    if (!Tool::find(Whisper::standardTool))
        Commands::remark("Install whisper.cpp so that the command whisper-cli is on the PATH.");
    if (project.language) return;
    const auto language = Settings::language();
    Commands::remark(
        fmt::format("Listening for the language {} ({}). Another, say English, for this project: "
                    "echo '[\"setLanguage\", \"en\"]' | murbo --script <project>",
                    Settings::languageName(language), language));
}

double secondsSince(Clock::time_point then) {
    return std::chrono::duration<double>(Clock::now() - then).count();
}

/// On a terminal, a line on standard error with a clock that runs while a clip is being listened to. How far
/// the engine is it does not say.
class Listening {
public:
    explicit Listening(std::string what) {
        if (isatty(STDERR_FILENO) == 1)
            showing = std::jthread([this, what](std::stop_token stop) { show(what, stop); });
    }

private:
    void show(const std::string& what, const std::stop_token& stop) {
        const auto started = Clock::now();
        std::unique_lock lock(guard);
        while (!stop.stop_requested()) {
            const auto clock = ProjectSummary::clock(secondsSince(started));
            std::fputs(fmt::format("\r\033[K{} … {}", what, clock).c_str(), stderr);
            std::fflush(stderr);
            over.wait_for(lock, stop, 1s, [] { return false; });
        }
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
    }

    std::mutex guard;
    std::condition_variable_any over;
    std::jthread showing;
};

Activity begun(const Clip& clip) {
    Activity activity;
    activity.kind = "transcribe";
    activity.title = "Transcribe " + clip.tag();
    activity.engine = Whisper::name;
    activity.started = std::chrono::system_clock::now();
    return activity;
}

void end(Activity& activity, const char* state, const std::filesystem::path& package) {
    activity.state = state;
    activity.ended = std::chrono::system_clock::now();
    Activity::log(activity, package);
}

/// What is said in a clip, with an entry in the activity log once it is known and kept, or why it isn't.
std::vector<Line> transcribe(const Clip& clip, const Source& source, Commands::Opened& opened,
                             const std::stop_token& stop) {
    auto activity = begun(clip);
    try {
        const auto before = opened.project;
        const auto language = before.language.value_or(Settings::language());
        const auto result =
            Transcription::lines(source, clip.start, clip.end, language, source.note.value_or(""),
                                 Whisper::on(Whisper::standardModel()), stop);
        Transcripts::replaceLines(opened.project, source.id, clip.start, clip.end, result.lines);
        ProjectPackage::write(opened.project, opened.package, &before);
        activity.request = result.request;
        end(activity, "done", opened.package);
        return result.lines;
    } catch (const std::exception& error) {
        activity.error = error.what();
        end(activity, dynamic_cast<const Cancelled*>(&error) ? "stopped" : "failed", opened.package);
        throw;
    }
}

}

void Commands::transcribe(const Arguments&, const Words& words) {
    const auto lock = PackageLock::lock(Paths::absolute(words[0]));
    auto opened = open(words[0]);
    const auto wanted = clips(words[1], opened);
    if (wanted.empty())
        remark("None of these clips is there, with its footage, to be transcribed.");
    else
        remarkBefore(opened.project);
    const Interruption interruption;
    std::size_t position = 0;
    for (const auto& clip : wanted) {
        ++position;
        const auto* found = opened.project.source(clip.source);
        if (!found) continue;
        const auto source = *found; // the project changes under way
        const auto started = Clock::now();
        std::optional<Listening> listening(fmt::format("{}, {} of {}, {} of sound", clip.tag(), position,
                                                       wanted.size(), ProjectSummary::clock(clip.length())));
        std::vector<Line> lines;
        try {
            lines = murbo::transcribe(clip, source, opened, interruption.token());
        } catch (...) {
            listening.reset();
            remarkLeft(wanted, position);
            throw;
        }
        listening.reset();
        print(fmt::format("{}: {} lines in {:.1f} s", clip.tag(), lines.size(), secondsSince(started)));
        for (std::size_t at = 0; at < std::min(shownLines, lines.size()); ++at)
            print("    " + lines[at].text);
    }
}

}
