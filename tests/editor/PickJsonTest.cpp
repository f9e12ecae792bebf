#include "app/editor/commands/PickJson.h"
#include "platform/base/JsonWriter.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PickJson, isAKindAnIdAndAPieceWhereThereIsOne) {
    const Pick song{Pick::Kind::music, UUID::make(), {}};
    const Pick piece{Pick::Kind::caption, UUID::make(), 0};
    const auto one = R"(["music",")" + song.id.text() + R"("])";
    const auto other = R"(["caption",")" + piece.id.text() + R"(",0])";
    EXPECT_EQ(PickJson::of({}), "[]");
    EXPECT_EQ(PickJson::of({song, piece}), "[" + one + "," + other + "]");
    JsonWriter writer(JsonWriter::Layout::compact);
    PickJson::write(writer, piece);
    EXPECT_EQ(writer.finish(), other);
}
