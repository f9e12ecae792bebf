#include "core/intake/samples/CameraPath.h"

namespace murbo {
namespace {

using Motion = CameraFlow::Motion;

// Half of all steadiness is gone when the picture's rim strays this far from its course, in widths.
constexpr double halvingShake = 0.005;
// And when it flies past this fast, in widths a second: nothing can be made out.
constexpr double halvingSpeed = 1.5;
// Slower than this, in widths a second, is still: a hand's wander, a tripod's creep.
constexpr double stillSpeed = 0.025;
// Another kind of motion beside the strongest counts from this share of it on.
constexpr double besideShare = 0.6;

/// A course y = a + b t + c t^2 through a few values, by least squares.
struct Course {
    double slope = 0;  ///< at t = 0
    double strays = 0; ///< what the values miss the course by: standard deviation
};

/// Sums of powers of the times, shared by all courses over the same moments.
struct PowerSums {
    std::vector<double> times;
    std::array<double, 5> powers{};

    void add(double time) {
        times.push_back(time);
        double power = 1;
        for (auto& sum : powers) {
            sum += power;
            power *= time;
        }
    }
    double count() const { return static_cast<double>(times.size()); }

    Course course(const std::vector<double>& values) const;
};

using Row = std::array<double, 4>;

// Gauss on three equations; those that say nothing leave their unknown 0.
std::array<double, 3> solved(std::array<Row, 3> rows, int unknowns) {
    for (int at = 0; at < unknowns; ++at) {
        int best = at;
        for (int row = at + 1; row < unknowns; ++row)
            if (std::abs(rows[row][at]) > std::abs(rows[best][at])) best = row;
        std::swap(rows[at], rows[best]);
        if (std::abs(rows[at][at]) < 1e-12) continue;
        for (int row = 0; row < unknowns; ++row) {
            if (row == at) continue;
            const double factor = rows[row][at] / rows[at][at];
            for (int column = at; column < 4; ++column) rows[row][column] -= factor * rows[at][column];
        }
    }
    std::array<double, 3> answer{};
    for (int at = 0; at < unknowns; ++at)
        answer[at] = std::abs(rows[at][at]) < 1e-12 ? 0 : rows[at][3] / rows[at][at];
    return answer;
}

Course PowerSums::course(const std::vector<double>& values) const {
    const int unknowns = times.size() >= 5 ? 3 : times.size() >= 2 ? 2 : 1;
    std::array<Row, 3> rows{};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) rows[row][column] = powers[row + column];
    for (std::size_t at = 0; at < times.size(); ++at) {
        rows[0][3] += values[at];
        rows[1][3] += values[at] * times[at];
        rows[2][3] += values[at] * times[at] * times[at];
    }
    const auto [level, slope, bend] = solved(rows, unknowns);
    double misses = 0;
    for (std::size_t at = 0; at < times.size(); ++at) {
        const double miss = values[at] - (level + times[at] * (slope + times[at] * bend));
        misses += miss * miss;
    }
    const double free = count() - unknowns;
    return {slope, free > 0 ? std::sqrt(misses / free) : 0};
}

/// The four kinds of motion as what they do to the picture's rim, in widths.
struct Courses {
    Course pan, tilt, zoom, roll;

    double shake() const { return std::hypot(pan.strays, tilt.strays, std::hypot(zoom.strays, roll.strays)); }
    double speed() const { return std::hypot(pan.slope, tilt.slope, std::hypot(zoom.slope, roll.slope)); }
};

constexpr double toTheRim = 0.5; ///< from the middle, in widths

template <class Places>
Courses coursesOf(const Places& places, double time) {
    PowerSums grid;
    for (const auto& place : places) grid.add(place.time - time);
    const auto course = [&](double Motion::*part, double scale) {
        std::vector<double> values;
        for (const auto& place : places) values.push_back(place.sum.*part * scale);
        return grid.course(values);
    };
    return {course(&Motion::across, 1), course(&Motion::down, 1), course(&Motion::zoom, toTheRim),
            course(&Motion::roll, toTheRim)};
}

// Moving along two ways at once is mixed, and so is being thrown about more than moving.
Samples::Move moveOf(const Courses& seen) {
    using Move = Samples::Move;
    std::array<std::pair<double, Move>, 4> kinds{{{std::abs(seen.pan.slope), Move::pan},
                                                  {std::abs(seen.tilt.slope), Move::tilt},
                                                  {std::abs(seen.zoom.slope), Move::zoom},
                                                  {std::abs(seen.roll.slope), Move::roll}}};
    std::sort(kinds.begin(), kinds.end(), [](auto& a, auto& b) { return a.first > b.first; });
    const auto [strongest, move] = kinds[0];
    const bool thrown = seen.shake() > 2 * halvingShake && strongest * CameraPath::reach < 2 * seen.shake();
    if (thrown) return Move::mixed;
    if (strongest < stillSpeed) return Move::still;
    return kinds[1].first > besideShare * strongest ? Move::mixed : move;
}

double steadyShare(const Courses& seen) {
    const double shake = seen.shake() / halvingShake;
    const double speed = seen.speed() / halvingSpeed;
    return 1 / (1 + shake * shake) / (1 + speed * speed);
}

}

void CameraPath::add(double time, const std::optional<Motion>& motion) {
    CameraPlace place{.time = time};
    if (!places.empty()) place.shot = places.back().shot + (motion ? 0 : 1);
    if (motion && !places.empty()) {
        const Motion& before = places.back().sum;
        place.sum = {before.across + motion->across, before.down + motion->down, before.zoom + motion->zoom,
                     before.roll + motion->roll};
    }
    places.push_back(place);
}

// The places of the shot that is on, as far as the reach goes; beyond it only to have two of them.
std::vector<CameraPath::CameraPlace> CameraPath::round(double time) const {
    const auto after =
        std::upper_bound(places.begin(), places.end(), time,
                         [](double wanted, const CameraPlace& place) { return wanted < place.time; });
    const auto on = after == places.begin() ? after : after - 1;
    auto from = on;
    auto to = on + 1;
    const auto before = [&] { return from != places.begin() && (from - 1)->shot == on->shot; };
    const auto behind = [&] { return to != places.end() && to->shot == on->shot; };
    while (before() && (from - 1)->time >= time - reach) --from;
    while (behind() && to->time <= time + reach) ++to;
    if (to - from < 2 && behind()) ++to;
    if (to - from < 2 && before()) --from;
    return {from, to};
}

// One picture that does not follow is a cut; several are a camera that lost its picture.
double CameraPath::lostShare(double time) const {
    double links = 0;
    double lost = 0;
    for (std::size_t at = 1; at < places.size(); ++at) {
        if (places[at].time < time - reach || places[at].time > time + reach) continue;
        ++links;
        lost += places[at].shot != places[at - 1].shot ? 1 : 0;
    }
    return lost > 1 ? lost / links : 0;
}

CameraPath::CameraMoment CameraPath::at(double time) const {
    if (places.empty()) return {};
    const auto shot = round(time);
    const double lost = lostShare(time);
    if (shot.size() == 1 && lost > 0) return {0, Samples::Move::mixed};
    const Courses seen = coursesOf(shot, time);
    const double steady = steadyShare(seen) * (1 - lost);
    return {static_cast<std::uint8_t>(std::lround(255 * std::clamp(steady, 0.0, 1.0))),
            lost > 0.3 ? Samples::Move::mixed : moveOf(seen)};
}

void CameraPath::forgetBefore(double time) {
    // The picture that is on by then stays, and one before it to know its motion.
    while (places.size() > 2 && places[2].time < time - reach) places.pop_front();
}

}
