#include "core/playbooks/PlaybookCodec.h"
#include "tests/ProblemOf.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;

namespace {

std::string decoded(const std::string& json) {
    return problemOf([&] { Playbook::decode(json); });
}

std::string withLayer(const std::string& layer) {
    return R"({"name": "A", "layers": [)" + layer + "]}";
}

}

TEST(PlaybookCodec, readsANumberAndWritesBackItsForm) {
    const auto num = [](const std::string& json) { return Codec::decode<Playbook::Num>(json); };
    const auto back = [&](const std::string& json) {
        return Codec::encode(num(json), JsonWriter::Layout::compact);
    };
    for (const char* json : {"0.5", R"("$split")", R"("1 - $split")"}) EXPECT_EQ(back(json), json);
    EXPECT_EQ(num(R"("$title-2")").value({{"title", "3"}}), 1);
    EXPECT_EQ(num(R"("$x")").value({{"x", "wide"}}), std::nullopt);
    EXPECT_THAT(problemOf([&] { num(R"("$title-b")"); }),
                "a number, a $parameter, or a sum of them like 1-$split");
}

TEST(PlaybookCodec, saysWhereAFaultOfTypeIs) {
    EXPECT_EQ(decoded(R"({"layers": []})"), "At name: this is needed.");
    EXPECT_EQ(decoded(withLayer(R"({"text": "a", "x": "wide"})")),
              "At layers[0].x: a number, a $parameter, or a sum of them like 1-$split");
    EXPECT_EQ(decoded(withLayer(R"({"text": "a", "x": true})")),
              "At layers[0].x: a number, a $parameter, or a sum of them like 1-$split");
    EXPECT_EQ(decoded(withLayer(R"({"text": "a", "keys": [{"x": 1}]})")),
              "At layers[0].keys[0].t: this is needed.");
    EXPECT_EQ(decoded(R"({"name": null, "layers": []})"), "At name: a value is needed.");
    EXPECT_THAT(decoded(withLayer(R"({"text": 5})")), HasSubstr("At layers[0].text: "));
    EXPECT_THAT(decoded("{"), HasSubstr("JSON"));
}

TEST(PlaybookCodec, takesKeysWithAnyCharacters) {
    const auto playbook =
        Playbook::decode(R"({"name": "A", "layers": [], "params": {"a\u0000b": {"type": "text"}}})");
    EXPECT_EQ(playbook.params->begin()->first, std::string("a\0b", 3));
}
