#include "app/desktop/models/Rows.h"

#include <unordered_set>

namespace murbo {
namespace {

/// Which of these places are in a longest rising run: these rows stay, the others move.
std::vector<bool> rising(const std::vector<int>& places) {
    std::vector<int> ends; // index of the smallest end of a run of each length
    std::vector<int> before(places.size(), -1);
    for (int at = 0; at < static_cast<int>(places.size()); ++at) {
        const auto slot = std::lower_bound(ends.begin(), ends.end(), places[at],
                                           [&](int index, int place) { return places[index] < place; });
        if (slot != ends.begin()) before[at] = *(slot - 1);
        if (slot == ends.end())
            ends.push_back(at);
        else
            *slot = at;
    }
    std::vector<bool> stays(places.size());
    for (int at = ends.empty() ? -1 : ends.back(); at >= 0; at = before[at]) stays[at] = true;
    return stays;
}

/// The list as it stands after each change, as ids.
class Changes {
public:
    explicit Changes(std::vector<std::string> before) : now(std::move(before)) {}

    void removeAllBut(const std::unordered_set<std::string>& wanted) {
        for (int at = static_cast<int>(now.size()) - 1; at >= 0; --at) {
            if (wanted.contains(now[at])) continue;
            list.push_back({RowChange::Kind::remove, at, 0});
            now.erase(now.begin() + at);
        }
    }

    /// Moves what does not stay, and inserts what is new, from the first row on.
    void follow(const std::vector<std::string>& after) {
        std::unordered_map<std::string, int> place;
        for (int at = 0; at < static_cast<int>(after.size()); ++at) place.emplace(after[at], at);
        std::vector<int> places;
        for (const auto& id : now) places.push_back(place.at(id));
        const auto stay = rising(places);
        std::unordered_set<std::string> staying;
        for (std::size_t at = 0; at < now.size(); ++at)
            if (stay[at]) staying.insert(now[at]);
        std::unordered_set<std::string> there(now.begin(), now.end());
        for (int at = 0; at < static_cast<int>(after.size()); ++at) {
            if (at < static_cast<int>(now.size()) && now[at] == after[at]) continue;
            if (there.contains(after[at]))
                move(after, at, staying);
            else
                insert(after[at], at);
        }
    }

    std::vector<RowChange> list;

private:
    void insert(const std::string& id, int at) {
        list.push_back({RowChange::Kind::insert, at, at});
        now.insert(now.begin() + at, id);
    }
    /// Either the wanted row comes here, or those that stand in its way, and do not stay, go to the end.
    void move(const std::vector<std::string>& after, int at, const std::unordered_set<std::string>& staying) {
        while (staying.contains(after[at]) && now[at] != after[at])
            shift(at, static_cast<int>(now.size()) - 1);
        if (now[at] == after[at]) return;
        shift(static_cast<int>(std::find(now.begin() + at, now.end(), after[at]) - now.begin()), at);
    }
    void shift(int from, int to) {
        list.push_back({RowChange::Kind::move, from, to});
        auto id = std::move(now[from]);
        now.erase(now.begin() + from);
        now.insert(now.begin() + to, std::move(id));
    }

    std::vector<std::string> now;
};

}

std::vector<RowChange> rowChanges(const std::vector<std::string>& before,
                                  const std::vector<std::string>& after) {
    Changes changes(before);
    changes.removeAllBut({after.begin(), after.end()});
    changes.follow(after);
    return std::move(changes.list);
}

}
