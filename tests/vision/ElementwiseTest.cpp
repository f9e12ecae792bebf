#include "tests/vision/TriedNetwork.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::TriedNetwork;

// Odd sizes, so that vectors have tails and windows hang over every edge.
TEST(Elementwise, isAsDefined) {
    expectAsPlain({{"a sum", {{3, 5, 7}, {3, 5, 7}}, {layer(Kind::add, {0, 0}, 1, Activation::relu6)}},
                   {"a mean that weighs its own picture",
                    {{6, 5, 11}, {1, 1, 11}, {6, 5, 11}},
                    {layer(Kind::mean, {0}, 1, Activation::logistic), layer(Kind::multiply, {0, 1}, 2)}},
                   {"a square", {{3, 5, 7}, {3, 5, 7}}, {layer(Kind::multiply, {0, 0}, 1)}},
                   {"larger", {{3, 4, 10}, {6, 8, 10}}, {layer(Kind::resize, {0}, 1)}},
                   {"smaller and larger", {{7, 4, 3}, {5, 9, 3}}, {layer(Kind::resize, {0}, 1)}},
                   {"an activation of what is used twice",
                    {{4, 4, 9}, {4, 4, 9}, {4, 4, 9}, {4, 4, 9}},
                    {layer(Kind::multiply, {0, 0}, 1), layer(Kind::activate, {1}, 2, Activation::hardSwish),
                     layer(Kind::add, {1, 2}, 3)}}});
}
