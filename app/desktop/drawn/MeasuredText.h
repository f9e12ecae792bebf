#pragma once

#include <QFont>
#include <QString>
#include <vector>

namespace murbo {

/// A label's line of text, measured once, so that it costs nothing to say how much of it goes into a width.
class MeasuredText {
public:
    MeasuredText() = default;
    MeasuredText(const QString& text, bool bold);

    /// The font of labels, 11 points high.
    static QFont font(bool bold);

    /// The longest beginning that is at most so wide, in points, ending between two letters as people see
    /// them; with `ellipsis` one stands for what is left out.
    QString fitting(double width, bool ellipsis) const;
    double width() const { return ends.empty() ? 0 : ends.back().width; }

private:
    /// Where a letter ends, and how wide the text is up to there.
    struct LetterEnd {
        qsizetype at = 0;
        double width = 0;
    };

    QString line;
    double dots = 0; ///< how wide an ellipsis is
    std::vector<LetterEnd> ends;
};

}
