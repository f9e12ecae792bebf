#include "core/render/stage/KeyedValue.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Stage;

namespace {

using Key = Playbook::Key;

Key key(double t, std::optional<double> x, std::optional<std::string> ease = {}) {
    Key result;
    result.t = t;
    result.x = x;
    result.ease = std::move(ease);
    return result;
}

double at(const std::vector<Key>& keys, double time) {
    return KeyedValue::at(time, keys, &Key::x).value_or(KeyedValue{std::nan("")}).value;
}

}

TEST(KeyedValue, goesFromKeyToKey) {
    const std::vector<Key> keys{key(2, 30, "linear"), key(0, 10), key(1, 20, "snap"), key(0.5, {}),
                                key(3, 0, "bounce")};
    struct Case {
        double time, x;
    };
    for (const auto& [time, x] :
         {Case{-1, 10}, Case{0, 10}, Case{0.5, 18.75}, Case{1, 20}, Case{1.25, 22.5},
          Case{2.5, 30 - 30 * (7.5625 * std::pow(0.5 - 6 / 11.0, 2) + 0.75)}, Case{3, 0}, Case{99, 0}})
        EXPECT_NEAR(at(keys, time), x, 1e-9) << time;
    EXPECT_DOUBLE_EQ(at({key(0, 0), key(1, 1)}, 0.25), 0.15625) << "smooth where nothing is said";
    EXPECT_DOUBLE_EQ(at({key(0.5, 7)}, 99), 7) << "one key holds";
    EXPECT_DOUBLE_EQ(at({key(0, 1), key(1, 2), key(1, 3)}, 1), 3) << "two at one time: a jump";
    EXPECT_FALSE(KeyedValue::at(1, keys, &Key::opacity));
    EXPECT_TRUE(KeyedValue::at(1.5, keys, &Key::x)->travels);
    EXPECT_FALSE(KeyedValue::at(3, keys, &Key::x)->travels);
}
