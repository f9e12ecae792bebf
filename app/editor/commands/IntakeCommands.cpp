#include "app/editor/commands/IntakeCommands.h"

#include "app/editor/ai/FootageTasks.h"
#include "app/editor/commands/FootageAICommands.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/TranscribeCommands.h"
#include "core/intake/Intake.h"
#include "core/intake/Markers.h"
#include "core/intake/SourceFinder.h"
#include "core/intake/Sources.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <map>
#include <stop_token>

#include <qcorotask.h>

namespace murbo::IntakeCommands {
namespace {

namespace fs = std::filesystem;

std::string nameOf(const fs::path& file) {
    return Text::repaired(file.filename().string());
}

/// Has the clips of sources described in which something is said. The owner agreed to that in the settings.
void describe(Editor& editor, const std::vector<UUID>& sources) {
    std::vector<UUID> clips;
    for (const auto& clip : editor.project().clips)
        if (std::find(sources.begin(), sources.end(), clip.source) != sources.end()) clips.push_back(clip.id);
    if (!FootageTasks::batches(editor.project(), clips).empty())
        FootageAICommands::describeClips(editor, clips, Consent::given);
}

/// Has new sources in view and does with them what is wanted.
void welcome(Editor& editor, const std::vector<UUID>& sources, Then then) {
    editor.setMissing(SourceFinder::find(editor.project()));
    if (sources.empty()) return;
    editor.setSidebar({Collection::sources, sources.front()});
    if (!then.transcribe) return;
    const auto describing = [&editor, sources] { describe(editor, sources); };
    TranscribeCommands::transcribeQueue(editor, TranscribeCommands::stretches(editor.project(), sources),
                                        false, then.describe ? describing : std::function<void()>());
}

QCoro::Task<> takeIn(Editor& editor, std::vector<fs::path> files, Then then) {
    const auto hold = editor.busy();
    const auto measuring = [files] { return Intake::lengths(files); };
    const auto measured = co_await editor.background.run(measuring);
    if (measured.empty()) {
        editor.refuse("Those files could not be read");
        co_return;
    }
    add(editor, measured, "", then);
}

Sources::StreamNotes notes(const std::optional<fs::path>& markers, const std::string& note) {
    Sources::StreamNotes found;
    if (markers) found = {nameOf(*markers), Markers::text(*markers), {}};
    if (!Text::trimmed(note).empty()) found.note = note;
    return found;
}

QCoro::Task<> takeInStream(Editor& editor, fs::path recording, std::optional<fs::path> markers,
                           std::string note, Then then) {
    const auto hold = editor.busy();
    const auto measuring = [recording] { return Intake::lengths({recording}); };
    const auto measured = co_await editor.background.run(measuring);
    if (measured.empty()) {
        editor.refuse(nameOf(recording) + " could not be read");
        co_return;
    }
    addStream(editor, measured.front(), notes(markers, note), then);
}

/// The first movie of each name in a folder and those within it.
std::map<std::string, fs::path> byName(const fs::path& folder, const std::stop_token& stop) {
    std::map<std::string, fs::path> files;
    for (const auto& file : Intake::videos({folder}, stop)) files.try_emplace(file.filename().string(), file);
    return files;
}

void takeFound(Editor& editor, const std::map<std::string, fs::path>& files) {
    std::map<UUID, std::string> found;
    for (const auto& source : editor.project().sources) {
        if (!editor.missing().contains(source.id)) continue;
        if (const auto same = files.find(source.name()); same != files.end())
            found[source.id] = same->second.string();
    }
    if (found.empty()) return editor.refuse("None of the missing files were there");
    auto missing = editor.missing();
    for (const auto& entry : found) missing.erase(entry.first);
    editor.setMissing(missing);
    editor.apply([&](Project& project) {
        for (auto& source : project.sources.edit())
            if (const auto path = found.find(source.id); path != found.end()) source.path = path->second;
    });
    editor.reloadVideo(std::nullopt);
    editor.say("Found " + std::to_string(found.size()) +
               (found.size() == 1 ? " missing file" : " missing files"));
}

QCoro::Task<> lookFor(Editor& editor, fs::path folder, std::stop_token stop) {
    const auto hold = editor.busy();
    const auto looking = [folder, stop] { return byName(folder, stop); };
    const auto files = co_await editor.background.run(looking);
    if (!stop.stop_requested()) takeFound(editor, files);
}

}

void add(Editor& editor, const std::vector<MeasuredFile>& files, const std::string& group, Then then) {
    std::vector<fs::path> paths;
    for (const auto& file : files) paths.push_back(file.path);
    std::vector<UUID> sources;
    editor.change("Add Footage", [&](Project& project) {
        sources = Sources::add(project, files, group.empty() ? Intake::groupName(paths) : group,
                               Source::Kind::file);
    });
    welcome(editor, sources, then);
}

void addStream(Editor& editor, const MeasuredFile& recording, const Sources::StreamNotes& notes, Then then) {
    UUID source;
    editor.change("Add Stream",
                  [&](Project& project) { source = Sources::addStream(project, recording, notes); });
    welcome(editor, {source}, then);
}

void addFiles(Editor& editor, const std::vector<fs::path>& given, Then then) {
    auto files = Intake::videos(given);
    if (files.empty()) return editor.refuse("No video files there");
    takeIn(editor, std::move(files), then);
}

void addStream(Editor& editor, const fs::path& recording, const std::optional<fs::path>& markers,
               const std::string& note, Then then) {
    takeInStream(editor, recording, markers ? markers : Markers::find(recording), note, then);
}

/// A disk may be slow and a folder large: it is looked through on a thread, as a job that is seen and can be
/// stopped.
void findMissing(Editor& editor, const fs::path& folder) {
    if (editor.work.isRunning()) { // it need not wait for that
        editor.say("Looking for missing files");
        lookFor(editor, folder, editor.work.untilAllCancelled());
        return;
    }
    editor.work.run("Looking for missing files",
                    [&editor, folder](Work& work) { return lookFor(editor, folder, work.stopping()); });
}

CommandList table() {
    using Kind::Flag;
    using Kind::Maybe;
    return {
        row<Kind::ListOf<Kind::File>, Maybe<Flag>, Maybe<Flag>>(
            "addFiles", "Add Footage", {"files", "transcribe", "describe"},
            [](Editor& editor, const std::vector<fs::path>& files, std::optional<bool> transcribe,
               std::optional<bool> describe) {
                addFiles(editor, files, {transcribe.value_or(false), describe.value_or(false)});
            }),
        row<Kind::File, Maybe<Kind::File>, Maybe<Kind::AnyText>, Maybe<Flag>, Maybe<Flag>>(
            "addStream", "Add Stream", {"recording", "markers", "note", "transcribe", "describe"},
            [](Editor& editor, const fs::path& recording, const std::optional<fs::path>& markers,
               const std::optional<std::string>& note, std::optional<bool> transcribe,
               std::optional<bool> describe) {
                addStream(editor, recording, markers, note.value_or(""),
                          {transcribe.value_or(false), describe.value_or(false)});
            }),
        row<Kind::File>("findMissing", "Find Missing Footage", {"in"}, findMissing),
    };
}

}
