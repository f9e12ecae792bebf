#include "app/desktop/access/TimelineWords.h"

#include "app/editor/Timecode.h"

#include <cmath>

#include <fmt/format.h>

namespace murbo {
namespace {

const char* kind(const TimelineBlock& block) {
    switch (block.row) {
        case TimelineRow::shots:
            return "Shot";
        case TimelineRow::layers:
            return "Layer";
        case TimelineRow::picture:
            return "Cut";
        case TimelineRow::captions:
            return "Caption";
        case TimelineRow::overlays:
            return "Overlay";
        case TimelineRow::sounds:
            return "Sound";
        case TimelineRow::music:
            return "Song";
    }
    return "Block";
}

/// What a sighted person sees by colour and pattern.
std::string traits(const TimelineBlock& block) {
    std::string words;
    if (block.paint == TimelineBlock::Paint::bigCaption) words += ", big";
    if (block.paint == TimelineBlock::Paint::hiddenCaption) words += ", hidden";
    if (block.muted) words += ", muted";
    if (block.missing) words += ", file not found";
    return words;
}

/// Tags are drawn short, "C14.03–05", and read out in full, "C14.03 to C14.05".
std::string spoken(const std::string& label) {
    static const std::string dash = "–";
    const auto at = label.find(dash);
    const auto point = label.find('.');
    if (at == label.npos || point == label.npos || point > at) return label;
    const auto rest = label.substr(at + dash.size());
    const bool whole = !rest.empty() && rest[0] == label[0];
    return label.substr(0, at) + " to " + (whole ? rest : label.substr(0, point + 1) + rest);
}

}

std::string TimelineWords::list(const Video* video) {
    if (!video) return "Timeline";
    const auto cuts = video->cuts.size();
    const auto seconds = std::lround(video->length());
    return fmt::format("Timeline of {}, {} {}, {} {}", video->tag(), cuts, cuts == 1 ? "cut" : "cuts",
                       seconds, seconds == 1 ? "second" : "seconds");
}

std::string TimelineWords::block(const TimelineLayout& layout, const TimelineBlock& block, bool picked) {
    std::size_t number = 0;
    std::size_t all = 0;
    for (const auto& other : layout.blocks) {
        if (other.row != block.row) continue;
        ++all;
        if (other == block) number = all;
    }
    const auto label = block.row == TimelineRow::picture ? spoken(block.label) : block.label;
    return fmt::format("{} {} of {}, {}{} to {}{}{}", kind(block), number, all,
                       label.empty() ? "" : label + ", ", Timecode::fine(block.from),
                       Timecode::fine(block.to), traits(block), picked ? ", picked" : "");
}

}
