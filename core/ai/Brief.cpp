#include "core/ai/Brief.h"

#include "core/model/ProjectSummary.h"
#include "core/model/VideoTime.h"
#include "platform/base/Text.h"

#include <cmath>
#include <set>

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace murbo::Brief {

namespace {

constexpr std::size_t longestBeginning = 160; ///< characters
constexpr const char* seen = "(seen, not said) ";

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

std::string firstCharacters(std::string_view text, std::size_t limit) {
    std::size_t at = 0;
    for (std::size_t count = 0; at < text.size(); ++at)
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80 && count++ == limit) break;
    return std::string(text.substr(0, at));
}

std::string joined(const Said::Pieces& pieces) {
    std::string text;
    for (const auto* piece : pieces) {
        if (!text.empty()) text += ' ';
        text += oneLine(piece->text);
    }
    return text;
}

std::string block(const Clip& clip, const Project& project, const Said& said) {
    auto text = fmt::format("## {}, {}, {} to {}\n", clip.tag(), fileName(project.source(clip.source)),
                            ProjectSummary::clock(clip.start), ProjectSummary::clock(clip.end));
    for (const auto* piece : said.inClip(clip.id))
        if (!piece->gone)
            text += fmt::format("{} [{}] {}{}\n", piece->tag, ProjectSummary::clock(piece->start),
                                piece->note ? seen : "", oneLine(piece->text));
    return text;
}

/// The energy and kind of a clip, as far as its summary has them.
std::string character(const Clip& clip) {
    std::vector<std::string> words;
    if (!clip.summary) return "";
    for (const auto* word : {&clip.summary->energy, &clip.summary->kind})
        if (*word && !(*word)->empty()) words.push_back(oneLine(**word));
    return fmt::format("{}", fmt::join(words, ", "));
}

std::string head(const Clip& clip, const Project& project) {
    auto parts = fmt::format("{} at {}, {}", fileName(project.source(clip.source)),
                             ProjectSummary::clock(clip.start), ProjectSummary::clock(clip.length()));
    if (const auto words = character(clip); !words.empty()) parts += "; " + words;
    if (clip.rating == 1) parts += "; a favourite";
    const bool isNamed = clip.name && !clip.name->empty();
    return fmt::format("{}{} ({})", clip.tag(), isNamed ? " “" + oneLine(*clip.name) + "”" : "", parts);
}

std::string description(const Clip& clip, const Said& said) {
    if (clip.summary)
        return fmt::format("{}. {}", oneLine(clip.summary->title), oneLine(clip.summary->summary));
    const auto start = beginning(clip, said);
    if (start.empty()) return "not described yet, nothing said.";
    return "not described yet. It starts: " + firstCharacters(start, longestBeginning);
}

/// What is said from the first to the last piece of a cut.
std::string between(const Said::Ends& ends, const Said& said) {
    Said::Pieces spoken;
    for (const auto* piece : said.inClip(ends.first->clip))
        if (!piece->gone && ends.first->start <= piece->start && piece->start <= ends.last->start)
            spoken.push_back(piece);
    return joined(spoken);
}

std::string line(const Cut& cut, const Said& said) {
    const auto length = fmt::format("{:.1f} s{}", cut.length(), cut.role ? ", " + oneLine(*cut.role) : "");
    if (cut.generator) {
        const auto& values = cut.generator->values;
        const auto title = values ? values->find("title") : Values::const_iterator();
        const bool isTitled = values && title != values->end();
        return fmt::format("{}, frames of their own: {}{}", length, oneLine(cut.generator->playbook),
                           isTitled ? " “" + oneLine(title->second) + "”" : "");
    }
    const auto ends = said.ends(cut);
    if (!ends) return length + ", nothing said";
    return fmt::format("{} to {}, {}: {}", ends->first->tag, ends->last->tag, length, between(*ends, said));
}

/// Minutes, and seconds with a tenth: "0:04.2".
std::string moment(double seconds) {
    const auto tenths = std::llround(std::clamp(seconds, 0.0, 1e9) * 10);
    return fmt::format("{}:{:02}.{}", tenths / 600, tenths / 10 % 60, tenths % 10);
}

}

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(line.begin(), line.end(), isControl, ' ');
    // The two line breaks of Unicode's own, and the one of old terminals.
    for (const std::string_view mark : {"\u2028", "\u2029", "\u0085"})
        for (auto at = line.find(mark); at != line.npos; at = line.find(mark, at))
            line.replace(at, mark.size(), 1, ' ');
    return line;
}

std::string fileName(const Source* source) {
    return source ? oneLine(source->name()) : "a missing file";
}

std::string beginning(const Clip& clip, const Said& said) {
    Said::Pieces first;
    for (const auto* piece : said.inClip(clip.id))
        if (!piece->gone && first.size() < 3) first.push_back(piece);
    return joined(first);
}

std::string lines(const Clips& clips, const Project& project, const Said& said) {
    std::string text;
    for (const auto* clip : clips) {
        if (!text.empty()) text += '\n';
        text += block(*clip, project, said);
    }
    return text;
}

std::string digest(const Clips& clips, const Project& project, const Said& said) {
    std::string text;
    for (const auto* clip : clips)
        text +=
            fmt::format("{}{}: {}", text.empty() ? "" : "\n", head(*clip, project), description(*clip, said));
    return text;
}

std::string notes(const Clips& clips, const Project& project) {
    std::set<UUID> wanted;
    for (const auto* clip : clips) wanted.insert(clip->source);
    std::string text;
    for (const auto& source : project.sources) {
        if (!wanted.contains(source.id) || !source.note || Text::trimmed(*source.note).empty()) continue;
        text += fmt::format("{}{}: {}", text.empty() ? "" : "\n", fileName(&source), oneLine(*source.note));
    }
    return text;
}

std::string cuts(const Video& video, const Said& said) {
    std::string text;
    std::size_t number = 0;
    for (const auto& cut : video.cuts)
        text += fmt::format("{}{}. {}", number ? "\n" : "", number + 1, line(cut, said)), ++number;
    return text;
}

std::string script(const Video& video, const Said& said) {
    std::string text;
    const auto starts = VideoTime::starts(video.cuts);
    for (std::size_t at = 0; at < starts.size(); ++at) {
        const auto& cut = video.cuts[at];
        for (const auto* piece : said.played(cut))
            text += fmt::format("{}{} [{}] {}{}", text.empty() ? "" : "\n", piece->tag,
                                moment(starts[at] + std::max(piece->start, cut.start) - cut.start),
                                piece->note ? seen : "", oneLine(piece->text));
    }
    return text;
}

}
