#include "core/model/Source.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Source, isCalledAfterItsFile) {
    for (const auto& [path, name] :
         {std::pair{"/a/b c.mp4", "b c.mp4"}, {"b.mp4", "b.mp4"}, {"/a/b/", "b"}, {"", ""}, {"/", "/"}})
        EXPECT_EQ(Source{.path = path}.name(), name);
}
