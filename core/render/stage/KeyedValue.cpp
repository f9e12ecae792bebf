#include "core/render/stage/KeyedValue.h"

#include "core/render/plan/Ease.h"

#include <algorithm>

namespace murbo::Stage {
namespace {

using Key = Playbook::Key;

double eased(const Key& to, double progress) {
    const auto curve = fromRawText<EaseCurve>(to.ease.value_or(""));
    return Ease::along(curve.value_or(EaseCurve::smooth), progress);
}

/// The keys that a time lies at or between. Of keys at one time the first is reached and the last is left.
struct NearKeys {
    const Key* first = nullptr;
    const Key* before = nullptr; ///< the last one reached
    const Key* after = nullptr;  ///< the next one

    void meet(const Key& key, double time) {
        if (!first || key.t < first->t) first = &key;
        if (key.t <= time && (!before || key.t >= before->t)) before = &key;
        if (key.t > time && (!after || key.t < after->t)) after = &key;
    }
};

}

std::optional<KeyedValue> KeyedValue::at(double time, const std::vector<Key>& keys,
                                         std::optional<double> Key::*field) {
    NearKeys near;
    for (const Key& key : keys)
        if (key.*field) near.meet(key, time);
    if (!near.first) return std::nullopt;
    if (!(time > near.first->t)) return KeyedValue{*(near.first->*field)};
    if (!near.after) return KeyedValue{*(near.before->*field)};
    const double from = *(near.before->*field);
    const double to = *(near.after->*field);
    const double span = std::max(near.after->t - near.before->t, 0.0001);
    return KeyedValue{from + eased(*near.after, (time - near.before->t) / span) * (to - from), from != to};
}

}
