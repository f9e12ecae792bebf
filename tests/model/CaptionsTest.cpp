#include "core/model/Captions.h"

#include <gtest/gtest.h>

namespace murbo {

TEST(Captions, findTheFirstEntryOfALine) {
    const UUID line = UUID::make();
    Captions captions;
    captions.lines =
        std::vector<CaptionLine>{{.line = UUID::make()}, {.line = line, .big = true}, {.line = line}};
    EXPECT_EQ(captions.line(line), &captions.lines[1]);
    EXPECT_EQ(captions.line(UUID::make()), nullptr);
}

}
