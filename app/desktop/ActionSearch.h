#pragma once

#include <QString>
#include <vector>

namespace murbo {

struct Action;

/// Finding actions by what somebody types.
namespace ActionSearch {

/// Those whose title holds the letters in their order, the nearest first: whole words before beginnings of
/// words before scattered letters. All of them for an empty text.
std::vector<const Action*> find(const QString& words);

/// How well a title meets what was typed; nothing where it does not. Lower is better.
std::optional<int> distance(const QString& title, const QString& words);

}

}
