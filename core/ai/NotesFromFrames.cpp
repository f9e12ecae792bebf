#include "core/ai/NotesFromFrames.h"

#include "core/ai/Brief.h"
#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "core/ai/Prompts.h"
#include "core/model/ProjectSummary.h"
#include "core/render/footage/Thumbnail.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Text.h"
#include "platform/image/Jpeg.h"
#include "platform/media/FrameReader.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::NotesFromFrames {

namespace {

constexpr double secondsPerFrame = 2;
constexpr double quality = 0.8;
constexpr double around = 60;              // seconds before and after, whose lines are told
constexpr std::size_t longestNote = 1'000; // bytes

constexpr const char* task =
    "You write a note on a stretch of someone's footage where nobody speaks, for an editor who reads the "
    "transcript instead of watching. You are shown frames of the stretch in order, and the lines around it. "
    "Say in one or two plain English sentences what happens: who or what is seen, what changes, how it ends. "
    "Say only what the frames show.";
constexpr const char* replyForm =
    "Reply with JSON only:\n"
    R"({"note": "what happens in the stretch"})";

std::string linesAround(const UUID& source, Stretch stretch, const Said& said) {
    std::string text;
    for (const auto* piece : said.on(source))
        if (!piece->gone && piece->end > stretch.from - around && piece->start < stretch.to + around)
            text += fmt::format("\n{} [{}] {}{}", piece->tag, ProjectSummary::clock(piece->start),
                                piece->note ? "(seen, not said) " : "", Brief::oneLine(piece->text));
    return text.empty() ? "\nnone" : text;
}

std::string clocks(Stretch stretch) {
    std::string text;
    for (const double time : times(stretch)) text += (text.empty() ? "" : ", ") + ProjectSummary::clock(time);
    return text;
}

}

std::vector<double> times(Stretch stretch) {
    const auto wanted = std::ceil(stretch.length() / secondsPerFrame);
    const int count = static_cast<int>(std::clamp(wanted, 1.0, static_cast<double>(maxFrames)));
    std::vector<double> found;
    for (int n = 0; n < count; ++n) found.push_back(stretch.from + stretch.length() * (n + 0.5) / count);
    return found;
}

std::vector<std::string> frames(const Source& source, Stretch stretch, const std::stop_token& stop) {
    std::vector<std::string> pictures;
    auto reader = FrameReader::open(source.path, FrameReader::Purpose::stills);
    for (const double time : times(stretch)) {
        const auto found = reader.at(time, stop);
        if (stop.stop_requested()) throw Cancelled();
        if (found) pictures.push_back(Jpeg::encode(Thumbnail::of(found->frame, maxSide), quality));
    }
    return pictures;
}

Ask ask(const UUID& source, Stretch stretch, std::vector<std::string> frames, const Project& project,
        const Said& said) {
    const auto* file = project.source(source);
    std::string words;
    if (file && file->note && !file->note->empty())
        words = fmt::format("The owner's notes on the footage:\n{}: {}\n\n", file->name(), *file->note);
    words += fmt::format("The stretch is {} to {} of {}. Its frames are from {}.\n\nThe lines around it:{}",
                         ProjectSummary::clock(stretch.from), ProjectSummary::clock(stretch.to),
                         Brief::fileName(file), clocks(stretch), linesAround(source, stretch, said));
    return {Ask::Model::cheap,
            {{Ask::Message::Role::system,
              fmt::format("{}\n\n{}\n\n{}", task, Prompts::transcriptWarning, replyForm)},
             {Ask::Message::Role::user, std::move(words), std::move(frames)}},
            1'000,
            1'000};
}

std::string warning(std::size_t frames) {
    return fmt::format(" {} of the footage leave{} this computer.",
                       frames == 1 ? "One picture" : fmt::format("{} pictures", frames),
                       frames == 1 ? "s" : "");
}

std::optional<std::string> words(const nlohmann::json& object) {
    const auto text = Ideas::text(object, "note");
    return text ? std::optional(Text::trimmed(Text::beginning(Brief::oneLine(*text), longestNote)))
                : std::nullopt;
}

void apply(const std::string& words, const UUID& source, Stretch stretch, Project& project, const Run& run) {
    if (!project.source(source)) throw Problem("The footage is gone from the project.");
    auto& notes = project.transcripts[source].notes.edit();
    const auto after = std::upper_bound(notes.begin(), notes.end(), stretch.from,
                                        [](double at, const Note& note) { return at < note.start; });
    notes.insert(after, {.start = stretch.from, .end = stretch.to, .text = words});
    const double middle = (stretch.from + stretch.to) / 2;
    for (auto& clip : project.clips.edit())
        if (clip.source == source && clip.holds(middle))
            LastRuns::note(clip.runs, Kit::ID::notesFromFrames, run);
}

}
