#pragma once

#include <QString>

namespace murbo {

/// The word of a line that is being said. Lines have times, words have none: they take the line's time by
/// their length, as the pieces of a caption do.
namespace SpokenWord {

/// A word, in code units of its line. Nothing is 0 to 0.
struct SpokenRange {
    qsizetype from = 0;
    qsizetype to = 0;
    bool operator==(const SpokenRange&) const = default;
};

/// The word at a share of a line's time, from 0 to 1.
SpokenRange at(const QString& line, double share);

/// The share of a line's time that has gone by before a place in it.
double share(const QString& line, qsizetype place);

}

}
