#include "tests/vision/TriedNetwork.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::TriedNetwork;

// Odd sizes, so that vectors have tails and windows hang over every edge.
TEST(Convolution, isAsDefined) {
    expectAsPlain(
        {{"a convolution that steps by two",
          {{9, 13, 3}, {5, 7, 21}},
          {windowed(Kind::convolution, 3, 2, 1, 3, 21)}},
         {"one that pads at the end only",
          {{8, 12, 3}, {4, 6, 16}},
          {windowed(Kind::convolution, 3, 2, 0, 3, 16)}},
         {"a mix of channels",
          {{3, 7, 24}, {3, 7, 72}},
          {windowed(Kind::convolution, 1, 1, 0, 24, 72, Activation::relu)}},
         {"a depthwise window",
          {{7, 11, 27}, {7, 11, 27}},
          {windowed(Kind::depthwise, 5, 1, 2, 27, 27, Activation::hardSwish)}},
         {"one wider than its picture", {{2, 3, 8}, {2, 3, 8}}, {windowed(Kind::depthwise, 5, 1, 2, 8, 8)}},
         {"an enlarging one",
          {{4, 5, 16}, {8, 10, 1}},
          {windowed(Kind::enlarging, 2, 2, 0, 16, 1, Activation::logistic)}},
         {"one of several channels", {{3, 3, 5}, {9, 9, 3}}, {windowed(Kind::enlarging, 3, 3, 0, 5, 3)}}});
}
