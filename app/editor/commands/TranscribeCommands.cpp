#include "app/editor/commands/TranscribeCommands.h"

#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/Transcriptions.h"
#include "core/ai/Spending.h"
#include "core/intake/transcription/Scribe.h"
#include "core/intake/transcription/Transcription.h"
#include "core/intake/transcription/Transcripts.h"
#include "core/intake/transcription/Whisper.h"
#include "core/model/Settings.h"
#include "core/model/package/Activity.h"
#include "platform/base/Cancelled.h"
#include "platform/store/Keychain.h"

#include <algorithm>
#include <chrono>

#include <fmt/format.h>
#include <qcorotask.h>

namespace murbo::TranscribeCommands {
namespace {

using Stretches = std::vector<SourceStretch>;

/// The engine to use; where it lacks something a toast says so.
std::optional<Transcriber> engine(Editor& editor, bool paid) {
    if (!paid) {
        if (const auto lacking = Whisper::missing()) {
            editor.refuse(*lacking);
            return {};
        }
        return Whisper::on(Whisper::standardModel());
    }
    const auto key = Keychain::openRouter();
    if (key) return Scribe::with(*key, Settings::transcriptionModel());
    editor.refuse("Add your OpenRouter key in Settings ▸ AI to use Scribe");
    return {};
}

std::string label(const Stretches& all, std::size_t at) {
    const auto place = all.size() > 1 ? fmt::format(", {} of {}", at + 1, all.size()) : "";
    return "Transcribing " + all[at].name + place;
}

void log(Editor& editor, Activity activity, const char* state) {
    activity.state = state;
    activity.ended = std::chrono::system_clock::now();
    if (editor.package()) Activity::log(activity, *editor.package());
}

/// Transcribes one stretch. Whether it is done; where not, a toast has said why.
QCoro::Task<bool> transcribe(Editor& editor, SourceStretch stretch, Transcriber engine, bool paid,
                             std::stop_token stop) {
    const auto* found = editor.project().source(stretch.source);
    if (!found) co_return true;
    const auto source = *found;
    Activity activity;
    activity.kind = "transcribe";
    activity.title = "Transcribe " + stretch.name;
    activity.engine = engine.name;
    activity.started = std::chrono::system_clock::now();
    auto& state = Transcriptions::of(editor);
    state.begin(stretch);
    try {
        const auto language = editor.project().language.value_or(Settings::language());
        const auto listening = [=] {
            return Transcription::lines(source, stretch.range.from, stretch.range.to, language,
                                        source.note.value_or(""), engine, stop);
        };
        const auto result = co_await editor.background.run(listening);
        editor.apply([&](Project& project) {
            Transcripts::replaceLines(project, source.id, stretch.range.from, stretch.range.to, result.lines);
        });
        activity.request = result.request;
        activity.cost = result.cost;
        if (result.cost > 0) Spending::add(result.cost);
        log(editor, activity, "done");
        state.end();
        co_return true;
    } catch (const Cancelled& stopped) {
        activity.error = stopped.what();
        log(editor, activity, "stopped");
        state.end();
    } catch (const std::exception& error) {
        activity.error = error.what();
        log(editor, activity, "failed");
        state.end(Transcriptions::Failure{stretch, paid, error.what()});
        editor.refuse(stretch.name + " could not be transcribed. " + error.what());
    }
    co_return false;
}

QCoro::Task<> transcribeAll(Work& work, Editor& editor, Stretches stretches, Transcriber engine, bool paid,
                            std::function<void()> then, Editor::Busy) {
    for (std::size_t at = 0; at < stretches.size(); ++at) {
        work.setLabel(label(stretches, at));
        work.setProgress(static_cast<double>(at) / static_cast<double>(stretches.size()));
        if (work.stopping().stop_requested()) co_return;
        const bool done = co_await transcribe(editor, stretches[at], engine, paid, work.stopping());
        if (!done) co_return;
    }
    if (then) then();
}

/// Asks whether to spend money on these, and goes on where nobody is there to say no.
QCoro::Task<> askAndTranscribe(Editor& editor, Stretches stretches, std::string what, const char* ofWhat) {
    const auto hold = editor.busy();
    double seconds = 0;
    for (const auto& stretch : stretches) seconds += stretch.range.length();
    const double dollars = Transcription::scribeCost(seconds);
    if (const auto refusal = Spending::refusal(dollars)) {
        editor.refuse(*refusal);
        co_return;
    }
    const auto text = fmt::format(
        "About ${:.3f}, from your OpenRouter key. The lines it replaces are those of {}.", dollars, ofWhat);
    if (editor.confirm) {
        auto asking = editor.confirm("Transcribe " + what + " with Scribe?", text, "Transcribe");
        const bool agreed = co_await asking;
        if (!agreed) co_return;
    }
    transcribeQueue(editor, stretches, true);
}

void transcribeHeld(Editor& editor) {
    const auto* clip = editor.held();
    const auto source = clip ? std::optional(clip->source) : editor.heldSource();
    const auto* found = source ? editor.project().source(*source) : nullptr;
    if (!found || (!clip && !editor.range())) return editor.refuse("Pick a clip in the browser first");
    const auto range = editor.range() ? *editor.range() : Stretch{clip->start, clip->end};
    const auto name = clip ? clip->tag() : found->name();
    askAndTranscribe(editor, {{*source, range, name}}, name, "this stretch");
}

void transcribeClips(Editor& editor, const std::vector<UUID>& clips) {
    Stretches stretches;
    for (const auto& id : clips)
        if (const auto* clip = editor.clip(id))
            stretches.push_back({clip->source, {clip->start, clip->end}, clip->tag()});
    if (stretches.empty()) return;
    const bool one = stretches.size() == 1;
    askAndTranscribe(editor, stretches,
                     one ? stretches.front().name : fmt::format("{} clips", stretches.size()),
                     one ? "this stretch" : "these clips");
}

void setLanguage(Editor& editor, const std::optional<std::string>& code) {
    editor.change("Set Language", [&](Project& project) { project.language = code; });
}

/// A stretch as scripts give it: [source, [a, b], name].
struct StretchKind {
    using Value = SourceStretch;
    static std::string words() { return "[source, [seconds, seconds], name]"; }
    static Value read(const JsonValue& value, const Editor& editor) {
        if (value.size() != 3) throw Problem("a source, a range and a name are expected.");
        return {Kind::SourceName::read(value.element(0), editor),
                Kind::TimeSpan::read(value.element(1), editor), Kind::Text::read(value.element(2), editor)};
    }
};

std::string json(const Stretches& all) {
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.beginArray();
    for (const auto& stretch : all) {
        writer.beginArray();
        writer.text(stretch.source.text());
        writer.beginArray();
        writer.number(stretch.range.from);
        writer.number(stretch.range.to);
        writer.endArray();
        writer.text(stretch.name);
        writer.endArray();
    }
    writer.endArray();
    return writer.finish();
}

}

Stretches stretches(const Project& project, const std::vector<UUID>& sources) {
    Stretches all;
    for (const auto& id : sources) {
        const auto* source = project.source(id);
        if (!source) continue;
        std::vector<Clip> clips;
        std::copy_if(project.clips.begin(), project.clips.end(), std::back_inserter(clips),
                     [&](const Clip& clip) { return clip.source == id; });
        std::stable_sort(clips.begin(), clips.end(),
                         [](const Clip& one, const Clip& other) { return one.start < other.start; });
        for (const auto& clip : clips) all.push_back({id, {clip.start, clip.end}, clip.tag()});
        if (clips.empty()) all.push_back({id, {0, source->length}, source->name()});
    }
    return all;
}

void transcribeQueue(Editor& editor, Stretches stretches, bool paid, std::function<void()> then) {
    auto chosen = engine(editor, paid);
    if (!chosen) return;
    std::erase_if(stretches,
                  [&](const SourceStretch& stretch) { return editor.missing().contains(stretch.source); });
    if (stretches.empty()) return;
    if (editor.work.isRunning())
        return editor.refuse("Wait for " + editor.work.label().value_or("the work running") + " to finish");
    editor.work.run("Transcribing",
                    [&editor, stretches, engine = *chosen, paid, then, hold = editor.busy()](Work& work) {
                        return transcribeAll(work, editor, stretches, engine, paid, then, hold);
                    });
}

void tryAgain(Editor& editor, const UUID& source, const Stretch& range) {
    const auto* failure = Transcriptions::of(editor).failure(source, range);
    if (!failure) return;
    if (failure->paid)
        askAndTranscribe(editor, {failure->stretch}, failure->stretch.name, "this stretch");
    else
        transcribeQueue(editor, {failure->stretch}, false);
}

CommandList table() {
    return {
        row<Kind::ListOf<Kind::SourceName>>("stretches", "What Would Be Transcribed", {"sources"},
                                            [](Editor& editor, const std::vector<UUID>& sources) {
                                                return json(stretches(editor.project(), sources));
                                            }),
        row<Kind::ListOf<StretchKind>, Kind::Maybe<Kind::Flag>>(
            "transcribeQueue", "Transcribe Stretches", {"stretches", "paid"},
            [](Editor& editor, const Stretches& all, std::optional<bool> paid) {
                transcribeQueue(editor, all, paid.value_or(false));
            }),
        row<>("transcribeHeld", "Transcribe with Scribe", {}, transcribeHeld),
        row<Kind::ListOf<Kind::ClipTag>>("transcribe", "Transcribe Clips with Scribe", {"clips"},
                                         transcribeClips),
        row<Kind::Maybe<Kind::Text>>("setLanguage", "Set Language", {"language"}, setLanguage),
    };
}

}
