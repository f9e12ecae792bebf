#include "core/playbooks/Check.h"
#include "core/playbooks/Effect.h"
#include "core/playbooks/Guide.h"
#include "core/playbooks/Playbook.h"
#include "core/playbooks/PlaybookCodec.h"
#include "platform/base/Problem.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;

namespace {

std::string problem(auto act) {
    try {
        act();
        return "none";
    } catch (const Problem& problem) {
        return problem.message();
    }
}

std::string checked(const std::string& json) {
    return problem([&] { PlaybookCheck::check(json); });
}

std::string decoded(const std::string& json) {
    return problem([&] { Playbook::decode(json); });
}

std::string withLayer(const std::string& layer) {
    return R"({"name": "A", "layers": [)" + layer + "]}";
}

}

TEST(PlaybookNumber, evaluatesSumsOfParameters) {
    const Values values{{"split", "0.3"}, {"a", "2"}, {"word", "yes"}, {"title2_b", "7"}};
    struct Case {
        const char* text;
        std::optional<double> strict;
        std::optional<double> loose;
    };
    for (const auto& [text, strict, loose] : std::initializer_list<Case>{
             {"1-$split", 0.7, 0.7},
             {"1-$none", {}, 0},
             {"$a/0", 2, 2},
             {"$a*3+4/2-1", 7, 7},
             {"8/2/2", 2, 2},
             {"--1", 1, 1},
             {"-(2+3)*2", -10, -10},
             {"2 3", 23, 23},
             {"$title2_b", 7, 7},
             {"$word", {}, 1},
             {"", {}, {}},
             {"1+", {}, {}},
             {"(1+2", {}, {}},
             {"2 3)", {}, {}},
             {"$", {}, {}},
             {"1..2", {}, {}},
             {"1e5", {}, {}},
         }) {
        const auto near = [](std::optional<double> one, std::optional<double> other) {
            return one.has_value() == other.has_value() && (!one || std::abs(*one - *other) < 1e-12);
        };
        EXPECT_TRUE(near(Playbook::evaluate(text, values, true), strict)) << text;
        EXPECT_TRUE(near(Playbook::evaluate(text, values, false), loose)) << text;
    }
}

TEST(PlaybookNumber, readsAndWritesBackItsForm) {
    const auto num = [](const std::string& json) { return Codec::decode<Playbook::Num>(json); };
    const auto back = [&](const std::string& json) {
        return Codec::encode(num(json), JsonWriter::Layout::compact);
    };
    for (const char* json : {"0.5", R"("$split")", R"("1 - $split")"}) EXPECT_EQ(back(json), json);
    EXPECT_EQ(num(R"("$title-2")").value({{"title", "3"}}), 1);
    EXPECT_EQ(num(R"("$x")").value({{"x", "wide"}}), std::nullopt);
    EXPECT_THAT(problem([&] { num(R"("$title-b")"); }),
                "a number, a $parameter, or a sum of them like 1-$split");
}

TEST(PlaybookNumber, anAbsurdlyDeepOrLongExpressionHasNoValue) {
    const auto bracketed = [](int depth) {
        std::string text(depth, '(');
        text.push_back('1');
        return text.append(depth, ')');
    };
    EXPECT_EQ(Playbook::evaluate(bracketed(100), {}, true), 1);
    EXPECT_FALSE(Playbook::evaluate(bracketed(100'000), {}, true));
    EXPECT_FALSE(Playbook::evaluate(std::string(100'000, '-') + '1', {}, true));
    const auto sum = [](int terms) {
        std::string text = "1";
        for (int i = 1; i < terms; ++i) text += "+1";
        return text;
    };
    EXPECT_EQ(Playbook::evaluate(sum(500), {}, true), 500);
    EXPECT_FALSE(Playbook::evaluate(sum(501), {}, true));
    EXPECT_FALSE(Playbook::Num::parse(std::string(1000, ' ') + '1'));
    EXPECT_EQ(Playbook::Num::parse("$x")->value({{"x", std::string(2'000, '0')}}), std::nullopt);
}

TEST(PlaybookLengths, keepEntranceAndExitWithinIt) {
    const auto lengths = [](const std::string& more) {
        const auto playbook = Playbook::decode(R"({"name": "A", "layers": [])" + more + "}");
        return std::tuple{playbook.naturalLength(), playbook.enterLength(), playbook.exitLength()};
    };
    EXPECT_EQ(lengths(""), std::tuple(3.0, 0.3, 0.3));
    EXPECT_EQ(lengths(R"(, "length": 0)"), std::tuple(0.2, 0.1, 0.1));
    EXPECT_EQ(lengths(R"(, "timing": {"in": 5})"), std::tuple(3.0, 1.5, 0.3));
}

TEST(PlaybookCheck, findsEveryFaultInOnePass) {
    EXPECT_EQ(checked("[]"), "A playbook is a JSON object.");
    EXPECT_EQ(checked("{}"), "A playbook needs layers, a list.");
    EXPECT_EQ(
        checked(R"({"id": "a/b", "kind": "overlay", "nam": 1, "captions": "$low", "layers": 1,
                          "params": {"p": {"type": "word"}, "q": {}}})"),
        "“nam” is not a field of a playbook. Fields: about, captions, cover, id, kind, layers, length, mute, "
        "name, params, timing, version.\n"
        "params.p: type “word” is not one of text, colour, number, choice, toggle, media.\n"
        "id: “a/b” may not contain / or ..\n"
        "kind: “overlay” is not a kind of playbook; leave it out, or say layout or generator.\n"
        "captions: $low is not declared in params.\n"
        "A playbook needs layers, a list.");
}

TEST(PlaybookCheck, holdsLayersAgainstTheWords) {
    const std::string oneOf =
        "layers[0] must be exactly one of image, video, text, shape, particles, slot or sound; it is ";
    const std::pair<const char*, std::string> cases[] = {
        {R"({"text": "Hi", "shape": "round"})", oneOf + "text and shape."},
        {R"({"x": 0.5})", oneOf + "none."},
        {R"({"text": "a", "colour": "0"})", "layers[0]: “colour” is not a field of a layer."},
        {R"({"text": "a", "in": "slide", "hold": "$h"})",
         "layers[0].in: “slide” is not one of none, fade, pop, zoom, slide-left, slide-right, slide-up, "
         "slide-down, "
         "drop, spin, stamp, wipe.\nlayers[0].hold: $h is not declared in params."},
        {R"({"shape": "$form"})", "layers[0].shape: $form is not declared in params."},
        {R"({"text": "$a and $b, 5$ or $$"})",
         "layers[0].text: $a is not declared in params.\nlayers[0].text: $b is not declared in params."},
        {R"({"text": "a", "effects": ["tint:FF0000", "tint:nonsense", "sharp"]})",
         "layers[0].effects: “sharp” is not one of mono, sepia, vhs, blur, glow, zoom-blur, invert, pixel, "
         "vignette, "
         "comic, posterize, bright, dark, saturate, tint:RRGGBB."},
        {R"({"text": "a", "keys": [{"t": 0}, {"t": 1, "w": 1, "ease": "slow"}]})",
         "layers[0].keys[1]: “w” is not a field of a key.\n"
         "layers[0].keys[1].ease: “slow” is not one of smooth, linear, snap, bounce."},
        {R"({"text": "Wait for $title… “$title” $title🎉 $ชื่อ"})",
         "layers[0].text: $title is not declared in params.\n"
         "layers[0].text: $title is not declared in params.\nlayers[0].text: $title is not declared in "
         "params.\n"
         "layers[0].text: $ชื่อ is not declared in params."},
        {R"({"image": "../x.png"})", "none"},
        {R"({"text": "a"}, 5)", "none"},
    };
    for (const auto& [layer, message] : cases) EXPECT_EQ(checked(withLayer(layer)), message) << layer;
}

TEST(PlaybookCheck, looksForFilesInTheFolderAlone) {
    const auto folder = std::filesystem::temp_directory_path() / ("playbook-" + UUID::make().text());
    std::filesystem::create_directories(folder / "assets");
    std::ofstream(folder / "assets/a.png") << "picture";
    const auto check = [&](const std::string& image) {
        return problem([&] { PlaybookCheck::check(withLayer(R"({"image": ")" + image + "\"}"), folder); });
    };
    EXPECT_EQ(check("assets/a.png"), "none");
    EXPECT_EQ(check("assets/b.png"), "layers[0].image: assets/b.png is not in the playbook.");
    EXPECT_EQ(check("../x.png"), "layers[0].image: ../x.png climbs out of the playbook.");
    EXPECT_EQ(check("/etc/passwd"), "layers[0].image: /etc/passwd is not in the playbook.");
    std::filesystem::remove_all(folder);
}

TEST(PlaybookDecoding, tellsFaultsOfTypeByTheirPlace) {
    EXPECT_EQ(decoded(R"({"layers": []})"), "At name: this is needed.");
    EXPECT_EQ(decoded(withLayer(R"({"text": "a", "x": "wide"})")),
              "At layers[0].x: a number, a $parameter, or a sum of them like 1-$split");
    EXPECT_EQ(decoded(withLayer(R"({"text": "a", "keys": [{"x": 1}]})")),
              "At layers[0].keys[0].t: this is needed.");
    EXPECT_EQ(decoded(R"({"name": null, "layers": []})"), "At name: a value is needed.");
    EXPECT_THAT(decoded(withLayer(R"({"text": 5})")), HasSubstr("At layers[0].text: "));
    EXPECT_THAT(decoded("{"), HasSubstr("JSON"));
}

TEST(PlaybookDecoding, takesKeysWithAnyCharacters) {
    const auto playbook =
        Playbook::decode(R"({"name": "A", "layers": [], "params": {"a\u0000b": {"type": "text"}}})");
    EXPECT_EQ(playbook.params->begin()->first, std::string("a\0b", 3));
}

TEST(PlaybookGuide, carriesEveryWordOfTheFormat) {
    const auto guide = PlaybookGuide::text();
    for (const auto effect : rawTexts(Effect{})) EXPECT_THAT(guide, HasSubstr(std::string(effect)));
    EXPECT_THAT(guide, HasSubstr("(style: pop, clean, bold, story, boxed or the owner's, or a $parameter)"));
    EXPECT_THAT(guide, HasSubstr("\"ease\": smooth/linear/snap/bounce}]"));
    EXPECT_THAT(guide, HasSubstr("in, out (none, fade, pop, zoom, slide-left,"));
    // Its own example is a playbook that passes.
    const auto from = guide.find(R"({"name": "Replay")");
    const auto to = guide.find("\n\nWORKING");
    ASSERT_NE(to, std::string::npos);
    EXPECT_EQ(Playbook::decode(guide.substr(from, to - from)).layers.size(), 3u);
}
