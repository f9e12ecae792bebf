#include "core/model/ProjectSummary.h"

#include "core/model/Tags.h"
#include "platform/base/RawText.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include <fmt/format.h>

namespace murbo::ProjectSummary {
namespace {

constexpr double secondsAnHour = 3600;
constexpr double longestTime = 1e15; // whole seconds are counted exactly up to here

/// Tags sorted, so that those of one clip stand together.
class SortedTags {
public:
    template <class Spoken>
    SortedTags(const List<Spoken>& all, const std::unordered_map<UUID, Tags::Named>& tags) {
        for (const auto& one : all)
            if (const auto tag = tags.find(one.id); tag != tags.end()) sorted.push_back(tag->second.tag);
        std::sort(sorted.begin(), sorted.end());
    }

    std::size_t count(const std::string& beginning) const {
        const auto from = std::lower_bound(sorted.begin(), sorted.end(), beginning);
        const auto to = std::partition_point(
            from, sorted.end(), [&](std::string_view tag) { return tag.starts_with(beginning); });
        return static_cast<std::size_t>(to - from);
    }

private:
    std::vector<std::string_view> sorted;
};

/// What belongs to what, found once: a project may hold tens of thousands of sources.
struct Belongings {
    std::unordered_map<UUID, std::vector<const Source*>> ofGroup;
    std::unordered_map<UUID, std::vector<const Clip*>> ofSource; ///< in the project's order
    std::unordered_map<UUID, const Source*> source;              ///< the first with that id

    explicit Belongings(const Project& project) {
        for (const auto& one : project.sources) {
            ofGroup[one.group].push_back(&one);
            source.emplace(one.id, &one);
        }
        for (const auto& clip : project.clips) ofSource[clip.source].push_back(&clip);
    }
};

std::string clipLine(const Clip& clip, const SortedTags& lines, const SortedTags& notes) {
    const auto tag = clip.tag();
    auto text = fmt::format("    {}  {}–{}  {}", tag, clock(clip.start), clock(clip.end),
                            count(lines.count(tag + "."), "line"));
    if (const auto noted = notes.count(tag + "."); noted > 0) text += ", " + count(noted, "note");
    if (clip.rating) text += *clip.rating >= 1 ? "  ★" : "  ✕";
    if (clip.summary) text += "  " + clip.summary->title;
    return text;
}

void addSource(std::vector<std::string>& out, const Source& source, std::vector<const Clip*> clips,
               const Transcript& transcript, bool missing) {
    out.push_back(fmt::format("  {}  {}, {}, {}{}", source.name(), rawText(source.kind), clock(source.length),
                              count(transcript.lines.size(), "line"), missing ? "  (missing)" : ""));
    const auto tags = Tags::named(transcript, clips);
    const SortedTags lines(transcript.lines, tags);
    const SortedTags notes(transcript.notes, tags);
    std::stable_sort(clips.begin(), clips.end(), [](auto* a, auto* b) { return a->start < b->start; });
    for (const auto* clip : clips) out.push_back(clipLine(*clip, lines, notes));
}

std::string bookmarkLine(const Bookmark& bookmark, const Belongings& belongings) {
    const auto source = belongings.source.find(bookmark.source);
    const auto name = source != belongings.source.end() ? source->second->name() : "?";
    auto text = fmt::format("{}  {} {}", bookmark.tag(), name, clock(bookmark.at));
    return bookmark.note ? text + "  " + *bookmark.note : text;
}

std::string videoLine(const Video& video) {
    return fmt::format("{}  {}  {}, {}, {:.1f} s", video.tag(), video.title, rawText(video.aspect),
                       count(video.cuts.size(), "cut"), video.length());
}

}

std::string clock(double seconds) {
    if (!(std::abs(seconds) < longestTime)) return "?";
    const double whole = std::abs(std::floor(seconds));
    const auto total = static_cast<std::int64_t>(whole);
    const char* sign = seconds < 0 ? "-" : "";
    if (whole < secondsAnHour) return fmt::format("{}{}:{:02}", sign, total / 60, total % 60);
    return fmt::format("{}{}:{:02}:{:02}", sign, total / 3600, total / 60 % 60, total % 60);
}

std::string count(std::size_t number, std::string_view word) {
    return fmt::format("{} {}{}", number, word, number == 1 ? "" : "s");
}

std::string text(const Project& project, const std::set<UUID>& missing) {
    std::vector<std::string> out;
    std::size_t lines = 0;
    std::size_t notes = 0;
    Belongings belongings(project);
    for (const auto& group : project.groups) {
        out.push_back(group.name);
        for (const auto* source : belongings.ofGroup[group.id]) {
            const auto& transcript = project.transcript(source->id);
            addSource(out, *source, belongings.ofSource[source->id], transcript,
                      missing.contains(source->id));
            lines += transcript.lines.size();
            notes += transcript.notes.size();
        }
    }
    for (const auto& bookmark : project.bookmarks) out.push_back(bookmarkLine(bookmark, belongings));
    for (const auto& video : project.videos) out.push_back(videoLine(video));
    out.push_back(fmt::format("{} ({} missing), {}, {}, {}, {}, {}", count(project.sources.size(), "source"),
                              missing.size(), count(project.clips.size(), "clip"), count(lines, "line"),
                              count(notes, "note"), count(project.bookmarks.size(), "bookmark"),
                              count(project.videos.size(), "video")));
    return fmt::format("{}", fmt::join(out, "\n"));
}

}
