#include "core/mcp/Overview.h"

#include "core/ai/Brief.h"
#include "core/model/ProjectSummary.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"

#include <map>

#include <fmt/format.h>

namespace murbo::Overview {

namespace {

constexpr const char* none = "none yet";
constexpr std::size_t minForClips = 12'000; ///< bytes, however long the rest is
constexpr std::size_t maxNoteBytes = 600;   ///< of a source's note
constexpr std::size_t maxIdeas = 60;

std::string orNone(std::string text) {
    return text.empty() ? none : text;
}

std::string cut(std::string text, std::size_t limit) {
    return text.size() <= limit ? text : Text::beginning(text, limit) + "…";
}

std::string sources(const Project& project) {
    std::string text;
    for (const auto& source : project.sources) {
        text += fmt::format("{}{}{}, {}", text.empty() ? "" : "\n", Brief::fileName(&source),
                            source.kind == Source::Kind::stream ? " (a stream)" : "",
                            ProjectSummary::clock(source.length));
        const auto note = Text::trimmed(source.note.value_or(""));
        if (!note.empty()) text += ": " + cut(Brief::oneLine(note), maxNoteBytes);
    }
    return text;
}

std::string videos(const Project& project) {
    std::string text;
    for (const auto& video : project.videos)
        text += fmt::format("{}{} “{}”, {}, {}, {} cuts", text.empty() ? "" : "\n", video.tag(),
                            Brief::oneLine(video.title), rawText(video.aspect),
                            ProjectSummary::clock(video.length()), video.cuts.size());
    return text;
}

std::string ideas(const Project& project) {
    std::string text;
    if (!project.ideas) return text;
    std::size_t count = 0;
    for (const auto& idea : *project.ideas) {
        if (++count > maxIdeas) return text + fmt::format(" and {} more", project.ideas->size() - maxIdeas);
        text += fmt::format("{}“{}”", text.empty() ? "" : ", ", Brief::oneLine(idea.title));
    }
    return text;
}

/// A clip in as few words as name it: its place on the source, and as much of its title as there is room for.
std::string shortLine(const Clip& clip, const Said& said, std::size_t limit) {
    auto head = fmt::format("{} {}, {}{}", clip.tag(), ProjectSummary::clock(clip.start),
                            ProjectSummary::clock(clip.length()), clip.rating == 1 ? ", a favourite" : "");
    const bool isNamed = clip.name && !clip.name->empty();
    const auto title = isNamed ? *clip.name : clip.summary ? clip.summary->title : "";
    const auto words = title.empty() ? Brief::beginning(clip, said) : Brief::oneLine(title);
    if (words.empty()) return head + ": nothing said";
    return head + ": " + cut(words, limit);
}

/// The clips source by source, with at most that number of bytes of words each; nothing where that is too
/// long.
std::optional<std::string> shortened(const Brief::Clips& clips, const Project& project, const Said& said,
                                     std::size_t words, std::size_t limit) {
    std::string text = "(shortened; search_lines finds words, read_clips gives a clip's lines)";
    const Source* source = nullptr;
    for (const auto* clip : clips) {
        if (const auto* its = project.source(clip->source); !source || its != source) {
            source = its;
            text += "\nIn " + Brief::fileName(its) + ":";
        }
        text += '\n';
        text += shortLine(*clip, said, words);
        if (text.size() > limit) return std::nullopt;
    }
    return text;
}

std::string clips(const Brief::Clips& all, const Project& project, const Said& said, std::size_t limit) {
    if (auto digest = Brief::digest(all, project, said); digest.size() <= limit) return digest;
    for (const std::size_t words : {160, 80, 60, 45, 30, 20, 10})
        if (auto text = shortened(all, project, said, words, limit)) return *text;
    std::string text;
    for (const auto* clip : all) {
        const auto line = clip->tag() + (text.size() < limit ? ", " : "");
        if (text.size() + line.size() > limit) break;
        text += line;
    }
    return text + "… (too many to describe; search_lines finds words, read_clips gives a clip's lines)";
}

}

std::string text(const Project& project, const Said& said) {
    Brief::Clips kept;
    for (const auto& clip : project.clips)
        if (clip.rating != -1) kept.push_back(&clip);
    const auto before = fmt::format("Sources:\n{}\n\nClips ({}; rejected ones left out):\n",
                                    orNone(sources(project)), kept.size());
    const auto after =
        fmt::format("\n\nVideos:\n{}\n\nIdeas waiting: {}", orNone(videos(project)), orNone(ideas(project)));
    const auto rest = before.size() + after.size();
    const auto room = rest + minForClips < maxBytes ? maxBytes - rest : minForClips;
    return before + orNone(clips(kept, project, said, room)) + after;
}

}
