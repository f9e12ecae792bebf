#include "core/playbooks/PlaybookCheck.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

std::string checked(const std::string& json) {
    return problemOf([&] { PlaybookCheck::check(json); });
}

std::string withLayer(const std::string& layer) {
    return R"({"name": "A", "layers": [)" + layer + "]}";
}

}

TEST(PlaybookCheck, findsEveryFaultInOnePass) {
    EXPECT_EQ(checked("[]"), "A playbook is a JSON object.");
    EXPECT_EQ(checked("{}"), "A playbook needs layers, a list.");
    EXPECT_EQ(
        checked(R"({"id": "a/b", "kind": "overlay", "nam": 1, "sound": 1, "captions": "$low", "layers": 1,
                          "params": {"p": {"type": "word"}, "q": {}}})"),
        "“nam” is not a field of a playbook. Fields: about, captions, cover, id, kind, layers, length, mute, "
        "name, params, timing, version.\n"
        "“sound” is not a field of a playbook. Fields: about, captions, cover, id, kind, layers, length, "
        "mute, "
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
        {R"({"image": "../x.png"})", ""},
        {R"({"text": "a"}, 5)", ""},
    };
    for (const auto& [layer, message] : cases) EXPECT_EQ(checked(withLayer(layer)), message) << layer;
}

TEST(PlaybookCheck, looksForFilesInTheFolderAlone) {
    const TemporaryFolder folder;
    folder.file("assets/a.png", "picture");
    const auto check = [&](const std::string& file, const std::string& kind = "image") {
        const auto json = withLayer("{\"" + kind + "\": \"" + file + "\"}");
        return problemOf([&] { PlaybookCheck::check(json, folder.path); });
    };
    for (const std::string kind : {"image", "video", "sound"})
        EXPECT_EQ(check("assets/b.mp4", kind),
                  "layers[0]." + kind + ": assets/b.mp4 is not in the playbook.");
    EXPECT_EQ(check("assets/a.png"), "");
    EXPECT_EQ(check("assets/b.png"), "layers[0].image: assets/b.png is not in the playbook.");
    EXPECT_EQ(check("../x.png"), "layers[0].image: ../x.png climbs out of the playbook.");
    EXPECT_EQ(check("/etc/passwd"), "layers[0].image: /etc/passwd is not in the playbook.");
}

TEST(PlaybookCheck, endsItsListWhereNobodyWouldReadOn) {
    std::string unknown, layers;
    for (int at = 0; at < 500'000; ++at) unknown += "$a ";
    for (int at = 0; at < 5'000; ++at)
        layers += std::string(at > 0 ? "," : "") + R"({"in": "no", "hold": "no"})";
    const auto lines = [](const std::string& message) {
        return std::count(message.begin(), message.end(), '\n') + 1;
    };
    EXPECT_EQ(lines(checked(withLayer(R"({"text": ")" + unknown + "\"}"))), 1000);
    EXPECT_EQ(lines(checked(withLayer(layers))), 1000);
    const std::string key(1'500'000, 'k');
    EXPECT_LT(checked(withLayer(R"({"text": "a", ")" + key + R"(": "$a $b $c"})")).size(), 4'000'000u);
}
