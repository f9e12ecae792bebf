#pragma once

#include "tests/desktop/TourText.h"

#include <QImage>
#include <array>

#include <fmt/format.h>

namespace murbo {

/// Pictures in lines of text, the same on every machine: which of those that were seen before each is; of a
/// new one, where that is wanted, the colours of those of its parts that have one. Rows that are alike stand
/// once.
class Looks {
public:
    TourText::Lines of(const std::string& name, const QImage& picture, bool whole) {
        const auto number = std::ranges::find(seen, picture) - seen.begin() + 1;
        TourText::Lines lines{
            fmt::format("{} looks as {}: {}x{}", name, number, picture.width(), picture.height())};
        if (number <= std::ssize(seen)) return lines;
        seen.push_back(picture);
        const auto before = lines.size();
        for (int row = 0; row < rows && whole; ++row) {
            std::string line = "  ";
            for (int column = 0; column < columns; ++column)
                line += colour(picture.copy(picture.width() * column / columns, picture.height() * row / rows,
                                            picture.width() / columns, picture.height() / rows));
            if (lines.size() == before || lines.back() != line) lines.push_back(line);
        }
        return lines;
    }

private:
    static constexpr int rows = 6, columns = 16;

    /// Which of eight colours, or grey, all of it has but for an edge.
    static char colour(const QImage& part) {
        static constexpr char names[] = "kbgcrmyw.";
        std::array<int, 9> counts{};
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x) {
                const auto point = part.pixel(x, y);
                const int most = std::max({qRed(point), qGreen(point), qBlue(point)});
                const int least = std::min({qRed(point), qGreen(point), qBlue(point)});
                const bool grey = most - least < 48;
                const auto lit = [&](int channel) { return channel > (most + least) / 2; };
                ++counts[grey ? (most < 80     ? 0
                                 : least > 176 ? 7
                                               : 8)
                              : lit(qRed(point)) * 4 + lit(qGreen(point)) * 2 + lit(qBlue(point))];
            }
        const auto most = std::ranges::max_element(counts);
        return *most * 10 < part.width() * part.height() * 9 ? '-' : names[most - counts.begin()];
    }

    std::vector<QImage> seen;
};

}
