#include "app/desktop/ActionSearch.h"

#include "app/desktop/Actions.h"

#include <algorithm>

namespace murbo::ActionSearch {
namespace {

constexpr int scattered = 1000;

/// Letters between those that were typed.
std::optional<int> gaps(const QString& title, const QString& words) {
    qsizetype at = -1;
    int sum = 0;
    for (const auto letter : words) {
        if (letter.isSpace()) continue;
        const auto next = title.indexOf(letter, at + 1);
        if (next < 0) return {};
        if (at >= 0) sum += static_cast<int>(next - at - 1);
        at = next;
    }
    return sum;
}

}

std::optional<int> distance(const QString& given, const QString& typed) {
    const auto title = given.toCaseFolded();
    const auto words = typed.trimmed().toCaseFolded();
    if (words.isEmpty()) return 0;
    const auto whole = title.indexOf(words);
    if (whole == 0) return 0;
    if (whole > 0 && title[whole - 1].isSpace()) return 1;
    if (whole > 0) return 2;
    const auto between = gaps(title, words);
    if (!between) return {};
    return scattered + *between;
}

std::vector<const Action*> find(const QString& words) {
    std::vector<std::pair<int, const Action*>> found;
    for (const auto& action : Actions::all()) {
        if (action.id == "palette") continue;
        const auto far = distance(QString::fromStdString(Actions::title(action)), words);
        if (far) found.emplace_back(*far, &action);
    }
    std::ranges::stable_sort(found, {}, &std::pair<int, const Action*>::first);
    std::vector<const Action*> actions;
    for (const auto& [far, action] : found) actions.push_back(action);
    return actions;
}

}
