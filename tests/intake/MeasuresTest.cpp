#include "core/intake/samples/Measures.h"

#include <gtest/gtest.h>

using namespace murbo;

// Many threads give in their measures at once: without its lock the map is torn.
TEST(Measures, ofManySourcesAreAllThereWithTheirOwn) {
    std::vector<Source> sources;
    for (int number = 0; number < 20'000; ++number) sources.push_back({.length = double(number)});
    for (int round = 0; round < 5; ++round) {
        const auto all = Measures::ofAll<double>(sources, 8, [](const Source& source) {
            if (source.length == 77) throw Problem("this one can't be measured");
            return source.length;
        });
        ASSERT_EQ(all.size(), sources.size() - 1);
        for (const auto& source : sources)
            ASSERT_TRUE(source.length == 77 || all.at(source.id) == source.length);
    }
}
