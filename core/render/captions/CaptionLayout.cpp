#include "core/render/captions/CaptionLayout.h"

#include <limits>

namespace murbo::CaptionLayout {

namespace {

// Beyond these nobody reads a caption; they bound the time and memory that a hostile project can ask for.
constexpr std::size_t longestText = 6000; // bytes
constexpr double largestSize = 4000;
constexpr double largestSide = 8192;
constexpr double largestArea = 16'000'000; // pixels

constexpr int moreLines = 3;

/// Boxes need air between the lines; bare lines stand close.
double lineMultiple(bool pill) {
    return pill ? 1.2 : 0.95;
}

/// Room for what reaches over the text block: 0.45 em, or an outline that needs more.
double padding(const Block& block) {
    return std::round(std::max(0.45 * block.size, block.stroke / 2 + 2));
}

bool fits(const ShapedText& text, double width, std::size_t lines) {
    return text.lines(width, lines).size() <= lines;
}

Rect boxOf(const ShapedText& text, Point start, double width, double size) {
    return {start.x - 0.3 * size, start.y - text.ascent() - 0.18 * size, width + 0.6 * size,
            text.ascent() + text.descent() + 0.3 * size};
}

}

bool isDrawable(const std::string& text, double size, double width) {
    return !text.empty() && text.size() <= longestText && size >= 1 && size <= largestSize && width >= 1 &&
           width <= largestSide;
}

double blockWidth(const ShapedText& text, double size, double maxWidth) {
    const double natural = text.width();
    if (natural <= maxWidth) return maxWidth;
    const auto fewest = std::size_t(std::ceil(natural / maxWidth));
    for (std::size_t lines = fewest; lines <= fewest + moreLines; ++lines) {
        double width = 0.8 * size + std::ceil(natural / double(lines));
        while (width < maxWidth && !fits(text, width, lines)) width += 0.5 * size;
        if (width < maxWidth) return width;
        if (fits(text, maxWidth, lines)) return maxWidth;
    }
    return maxWidth;
}

std::optional<Layout> lay(const ShapedText& text, const Block& block) {
    const double width = blockWidth(text, block.size, block.maxWidth);
    const auto lines = text.lines(width, std::numeric_limits<std::size_t>::max());
    const double height = text.ascent() + text.descent();
    const double step = height * lineMultiple(block.pill);
    const double pad = padding(block);
    const double pictureWidth = std::trunc(2 * pad + width);
    const double pictureHeight = std::trunc(2 * pad + std::ceil(step * double(lines.size())));
    if (pictureWidth > largestSide || pictureHeight > largestSide ||
        pictureWidth * pictureHeight > largestArea)
        return {};

    Layout layout{int(pictureWidth), int(pictureHeight), {}, {}};
    // What a multiple adds or takes is shared between above and below, so that the block's middle is the
    // text's.
    double baseline = pad + text.ascent() + (step - height) / 2;
    for (const auto& line : lines) {
        const Point start{pad + (width - line.width) / 2, baseline};
        const auto glyphs = text.glyphs(line, start);
        layout.glyphs.insert(layout.glyphs.end(), glyphs.begin(), glyphs.end());
        if (block.pill && line.to > line.from)
            layout.boxes.push_back(boxOf(text, start, line.width, block.size));
        baseline += step;
    }
    return layout;
}

}
