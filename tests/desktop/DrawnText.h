#pragma once

#include "app/desktop/drawn/DrawnView.h"
#include "app/desktop/timeline/TimelineDrag.h"
#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/TourText.h"

#include <variant>

#include <fmt/format.h>

/// What a timeline and other drawn views are made of, in lines of text.
namespace murbo::DrawnText {

using TourText::Lines;

inline double tenth(double number) {
    return TourText::rounded(std::round(number * 10) / 10);
}

inline std::string place(const QRectF& rect) {
    return fmt::format("{} {} {}x{}", tenth(rect.x()), tenth(rect.y()), tenth(rect.width()),
                       tenth(rect.height()));
}

inline std::string colour(const QColor& colour) {
    return colour.name(QColor::HexArgb).toStdString();
}

struct Items {
    std::string operator()(const DrawList::Patch& item) const {
        return "patch " + place(item.rect) + " " + colour(item.colour);
    }
    std::string operator()(const DrawList::Label& item) const {
        return fmt::format("label {} {} “{}”{}{}", place(item.rect), colour(item.colour),
                           item.text.toStdString(), item.ellipsis ? "" : " cut off",
                           item.bold ? " bold" : "");
    }
    std::string operator()(const DrawList::Still& item) const {
        const auto at = item.second < 0 ? "its card" : std::to_string(item.second);
        return fmt::format("still {} of {} at {}, {} wide, skips {}", place(item.rect), item.source.text(),
                           at, tenth(item.width), tenth(item.skip));
    }
    std::string operator()(const DrawList::FilePicture& item) const {
        return fmt::format("file {} {}", place(item.rect), item.file.string());
    }
    std::string operator()(const DrawList::Wave& item) const {
        return fmt::format("wave {} {} of {} {:.3f}-{:.3f}", place(item.rect), colour(item.colour),
                           item.file.empty() ? item.source.text() : item.file.string(), item.from, item.to);
    }
    std::string operator()(const DrawList::Symbol& item) const {
        return fmt::format("symbol {} {} {}", place(item.rect), colour(item.colour), item.name.toStdString());
    }
    std::string operator()(const DrawList::Stripes& item) const {
        return "stripes " + place(item.rect) + " " + colour(item.colour);
    }
};

/// The list of any drawn view.
inline Lines of(DrawnView& view, bool withoutPlaces) {
    struct Opened : DrawnView {
        using DrawnView::drawList;
    };
    static const std::regex places(" -?[0-9.]+ -?[0-9.]+ [0-9.]+x[0-9.]+");
    Lines lines;
    for (const auto& item : (view.*&Opened::drawList)().items) {
        const auto line = std::visit(Items(), item);
        lines.push_back(withoutPlaces ? std::regex_replace(line, places, "") : line);
    }
    return lines;
}

inline std::string of(const TimelineBlock& block) {
    static constexpr const char* paints[] = {"split",   "content", "face",       "layer",
                                             "cut",     "caption", "bigCaption", "hiddenCaption",
                                             "overlay", "sound",   "music"};
    using TourText::rounded;
    auto text = fmt::format("{} {} lane {} {}-{} “{}” {}", rawText(block.row), block.pick.id.text(),
                            block.lane, rounded(block.from), rounded(block.to), block.label,
                            paints[static_cast<int>(block.paint)]);
    if (block.pick.piece) text += fmt::format(", piece {}", *block.pick.piece);
    for (const auto& [holds, words] : {std::pair{!block.pickable, "not pickable"},
                                       {block.byBook, "by book"},
                                       {block.muted, "muted"},
                                       {block.silent, "silent"},
                                       {block.missing, "missing"},
                                       {block.card != 0, "card"},
                                       {block.startsInWord, "starts in word"},
                                       {block.endsInWord, "ends in word"}})
        if (holds) text += std::string(", ") + words;
    if (block.source) text += ", shows " + block.source->text();
    if (block.at != 0) text += fmt::format(", at {}", rounded(block.at));
    for (const auto& quiet : block.quiet)
        text += fmt::format(", quiet {}-{}", rounded(quiet.from), rounded(quiet.to));
    if (block.file) text += ", file " + block.file->string();
    if (block.sourceLength != 0) text += fmt::format(", of {} s", rounded(block.sourceLength));
    return text;
}

/// The rows of a timeline and all blocks on them.
inline Lines of(const TimelineLayout& layout) {
    Lines lines{fmt::format("{} s, {} high", TourText::rounded(layout.length), layout.height)};
    for (const auto& track : layout.tracks)
        lines.push_back(fmt::format("track {} {} + {}, {} lanes of {}", rawText(track.row), track.top,
                                    track.height, track.lanes, track.lane));
    for (const auto& block : layout.blocks) lines.push_back(of(block));
    return lines;
}

/// What a press along a height of it would meet: from which point on what.
inline std::string under(Editor& editor, const TimelineView& view, double y) {
    static constexpr const char* grips[] = {"none", "scrub", "pan", "start", "end",
                                            "roll", "slip",  "cut", "block", "band"};
    const TimelineDrag drag(editor);
    const auto& layout = view.shown();
    std::string text = fmt::format("y {}:", y);
    std::string last;
    for (double x = 0; x < view.shownSpan().width; x += 0.5) {
        const auto grip = drag.grip(layout, view.shownSpan(), {x, y});
        const auto* block = layout.hit(view.shownSpan().time(x), y, 3 / view.shownSpan().scale);
        const auto now = grips[static_cast<int>(grip)] + (block ? " “" + block->label + "”" : "");
        if (now != last) text += fmt::format(" {} {},", x, now);
        last = now;
    }
    return text;
}

}
