#include "core/playbooks/Stock.h"

#include "core/model/Move.h"
#include "platform/base/Problem.h"

#include <array>

namespace murbo {
namespace {

// clang-format off
constexpr std::array texts{
R"json({"id": "stock.layout.wide", "kind": "layout", "name": "Wide", "about": "The whole picture across the middle, over a softened copy of itself: menus, maps, the full screen.", "captions": "$y+0.23",
 "params": {"y": {"type": "number", "label": "Down", "value": "0.46", "min": 0.2, "max": 0.8}, "soft": {"type": "colour", "label": "Shade", "value": "000000"}},
 "layers": [{"slot": "picture", "fill": true, "scale": 1.08, "effects": ["blur", "dark"]},
            {"shape": "rect", "color": "$soft", "fill": true, "opacity": 0.18},
            {"slot": "picture", "shot": true, "w": 1, "y": "$y"}]})json",

R"json({"id": "stock.layout.top", "kind": "layout", "name": "Face on Top", "about": "Split the other way up: the face above, the content below.", "captions": "$split",
 "params": {"split": {"type": "number", "label": "Face", "value": "0.42", "min": 0.2, "max": 0.8}},
 "layers": [{"slot": "content", "shot": true, "w": 1, "h": "1-$split", "y": "$split+(1-$split)/2"},
            {"slot": "face", "shot": true, "w": 1, "h": "$split", "y": "$split/2"}]})json",

R"json({"id": "stock.layout.corner", "kind": "layout", "name": "Face Corner", "about": "The content fills the frame, the face small in a rounded box.",
 "params": {"size": {"type": "number", "label": "Face size", "value": "0.42", "min": 0.25, "max": 0.6},
            "x": {"type": "number", "label": "Across", "value": "0.75", "min": 0.15, "max": 0.85}, "y": {"type": "number", "label": "Down", "value": "0.64", "min": 0.15, "max": 0.85}},
 "layers": [{"slot": "content", "shot": true, "fill": true},
            {"shape": "round", "color": "FFFFFF", "w": "$size+0.015", "h": "$size*0.675+0.0084", "x": "$x", "y": "$y", "radius": 0.1},
            {"slot": "face", "w": "$size", "h": "$size*0.675", "x": "$x", "y": "$y", "radius": 0.09}]})json",

R"json({"id": "stock.layout.reaction", "kind": "layout", "name": "Reaction", "about": "The face fills the frame, the content in a panel above it.", "captions": 0.72,
 "params": {"size": {"type": "number", "label": "Panel size", "value": "0.88", "min": 0.4, "max": 0.96},
            "y": {"type": "number", "label": "Down", "value": "0.22", "min": 0.12, "max": 0.85}, "border": {"type": "colour", "label": "Border", "value": "FFFFFF"}},
 "layers": [{"slot": "face", "shot": true, "fill": true},
            {"shape": "round", "color": "$border", "w": "$size+0.02", "h": "$size*0.3164+0.01125", "y": "$y", "radius": 0.07},
            {"slot": "content", "w": "$size", "h": "$size*0.3164", "y": "$y", "radius": 0.06}]})json",

R"json({"id": "stock.layout.zoomed-out", "kind": "layout", "name": "Zoomed Out", "about": "The content small in the middle with black all around: the zoom-out meme.", "captions": 0.68,
 "params": {"size": {"type": "number", "label": "Size", "value": "0.4", "min": 0.15, "max": 0.9}},
 "layers": [{"shape": "rect", "color": "000000", "fill": true},
            {"slot": "content", "w": "$size"}]})json",

R"json({"id": "stock.generator.solid", "kind": "generator", "name": "Solid Colour", "about": "One colour across the frame: a pause, or a background to put a title over.", "length": 2, "timing": {"in": 0, "out": 0},
 "params": {"colour": {"type": "colour", "label": "Colour", "value": "1C2230"}},
 "layers": [{"shape": "rect", "color": "$colour", "fill": true}]})json",

R"json({"id": "stock.generator.gradient", "kind": "generator", "name": "Gradient", "about": "Two colours fading from top to bottom: a pause, or a background to put a title over.", "length": 2, "timing": {"in": 0, "out": 0},
 "params": {"top": {"type": "colour", "label": "Top", "value": "3A1C71"}, "bottom": {"type": "colour", "label": "Bottom", "value": "FF7E5F"}},
 "layers": [{"shape": "rect", "color": "$top", "gradient": "$bottom", "fill": true}]})json",

R"json({"id": "stock.generator.background", "kind": "generator", "name": "Background", "about": "A picture or a video of yours across the frame, a video looping, moving slowly: paper, a texture, a sky. Two colours until one is chosen.", "length": 4, "timing": {"in": 0, "out": 0},
 "params": {"media": {"type": "media", "label": "Picture or video"},
            "top": {"type": "colour", "label": "Top", "value": "F3E7D3"}, "bottom": {"type": "colour", "label": "Bottom", "value": "D9C3A0"}},
 "layers": [{"shape": "rect", "color": "$top", "gradient": "$bottom", "fill": true},
            {"slot": "$media", "fill": true, "loop": true, "hold": "drift"}]})json",

R"json({"id": "stock.generator.picture", "kind": "generator", "name": "Picture or Video", "about": "A picture or a video of yours over the footage, a video looping: a photo, a screenshot, a transparent video. Move and size it on the picture.", "length": 4, "timing": {"in": 0.2, "out": 0.2},
 "params": {"media": {"type": "media", "label": "Picture or video", "value": "emoji:🖼️"},
            "x": {"type": "number", "label": "Across", "value": "0.5", "min": 0, "max": 1}, "y": {"type": "number", "label": "Down", "value": "0.4", "min": 0, "max": 1},
            "size": {"type": "number", "label": "Size", "value": "0.8", "min": 0.1, "max": 2}, "tilt": {"type": "number", "label": "Tilt", "value": "0", "min": -30, "max": 30}},
 "layers": [{"slot": "$media", "loop": true, "w": "$size", "x": "$x", "y": "$y", "rotation": "$tilt", "in": "fade", "out": "fade"}]})json",

R"json({"id": "stock.generator.title", "kind": "generator", "name": "Title Card", "about": "A title and a line under it on a colour: to open a video, or between its parts.", "length": 3, "timing": {"in": 0.35, "out": 0.3},
 "params": {"title": {"type": "text", "label": "Title", "value": "Title"}, "subtitle": {"type": "text", "label": "Under It", "value": ""},
            "colour": {"type": "colour", "label": "Background", "value": "111111"}, "letters": {"type": "colour", "label": "Letters", "value": "FFFFFF"}},
 "layers": [{"shape": "rect", "color": "$colour", "fill": true},
            {"text": "$title", "size": 172, "color": "$letters", "outline": "", "y": 0.405, "in": "slide-up", "out": "fade"},
            {"text": "$subtitle", "size": 90, "color": "$letters", "outline": "", "y": 0.66, "opacity": 0.75, "from": 0.15, "in": "fade", "out": "fade"}]})json",

R"json({"id": "stock.hearts", "name": "Hearts", "about": "Hearts float up across the frame, for a cute moment.", "length": 3, "timing": {"in": 0.3, "out": 0.5},
 "params": {"hearts": {"type": "text", "label": "Hearts", "value": "💗,💕,💖"}, "size": {"type": "number", "label": "Size", "value": "0.1", "min": 0.04, "max": 0.25}},
 "layers": [{"particles": "$hearts", "count": 16, "w": "$size*0.7", "drift": "rise", "seed": 3, "opacity": 0.85, "in": "fade", "out": "fade"},
            {"particles": "$hearts", "count": 22, "w": "$size", "drift": "rise", "seed": 8, "in": "fade", "out": "fade"}]})json",

R"json({"id": "stock.confetti", "name": "Confetti", "about": "A burst of confetti from the middle, for a win.", "length": 2.5, "timing": {"in": 0, "out": 0.6},
 "params": {"x": {"type": "number", "label": "Across", "value": "0.5", "min": 0, "max": 1}, "y": {"type": "number", "label": "Down", "value": "0.5", "min": 0, "max": 1}},
 "layers": [{"particles": "confetti", "count": 170, "w": 0.032, "drift": "burst", "x": "$x", "y": "$y", "seed": 5, "out": "fade"},
            {"particles": "confetti", "count": 60, "w": 0.022, "drift": "burst", "x": "$x-0.3", "y": "$y", "seed": 11, "out": "fade"},
            {"particles": "confetti", "count": 60, "w": 0.022, "drift": "burst", "x": "$x+0.3", "y": "$y", "seed": 12, "out": "fade"}]})json",

R"json({"id": "stock.sparkles", "name": "Sparkles", "about": "Sparkles twinkle over the picture.", "length": 3, "timing": {"in": 0.3, "out": 0.4},
 "params": {"sparkles": {"type": "text", "label": "Sparkles", "value": "✨"}, "size": {"type": "number", "label": "Size", "value": "0.08", "min": 0.03, "max": 0.2}},
 "layers": [{"particles": "$sparkles", "count": 24, "w": "$size", "drift": "float", "seed": 171, "in": "fade", "out": "fade"},
            {"particles": "$sparkles", "count": 16, "w": "$size*0.5", "drift": "float", "seed": 103, "in": "fade", "out": "fade"}]})json",

R"json({"id": "stock.sticker", "name": "Sticker", "version": 3, "about": "An emoji or a word pops on, wobbles, and pops off.", "length": 1.6, "timing": {"in": 0.25, "out": 0.2},
 "params": {"sticker": {"type": "text", "label": "Sticker", "value": "😂"}, "x": {"type": "number", "label": "Across", "value": "0.72", "min": 0, "max": 1},
            "y": {"type": "number", "label": "Down", "value": "0.38", "min": 0, "max": 1}, "size": {"type": "number", "label": "Size", "value": "220", "min": 60, "max": 600},
            "tilt": {"type": "number", "label": "Tilt", "value": "0", "min": -30, "max": 30}, "style": {"type": "choice", "label": "Letters", "value": "pop", "options": ["pop", "clean", "bold", "story", "boxed"]},
            "colour": {"type": "colour", "label": "Colour", "value": "FFFFFF"}, "outline": {"type": "colour", "label": "Outline", "value": "1A1A1A"}},
 "layers": [{"text": "$sticker", "style": "$style", "size": "$size", "x": "$x", "y": "$y", "rotation": "$tilt", "color": "$colour", "outline": "$outline", "in": "pop", "hold": "wobble", "out": "pop"}]})json",

R"json({"id": "stock.picture-sticker", "name": "Picture Sticker", "about": "A picture (an emote, a cut-out) pops on, wobbles, and pops off.", "length": 1.8, "timing": {"in": 0.25, "out": 0.2},
 "params": {"picture": {"type": "media", "label": "Picture", "value": "emoji:🖼️"}, "x": {"type": "number", "label": "Across", "value": "0.72", "min": 0, "max": 1},
            "y": {"type": "number", "label": "Down", "value": "0.38", "min": 0, "max": 1}, "size": {"type": "number", "label": "Size", "value": "0.34", "min": 0.05, "max": 1},
            "tilt": {"type": "number", "label": "Tilt", "value": "0", "min": -30, "max": 30}},
 "layers": [{"slot": "$picture", "loop": true, "w": "$size", "x": "$x", "y": "$y", "rotation": "$tilt", "in": "pop", "hold": "wobble", "out": "pop"}]})json",

R"json({"id": "stock.hook", "name": "Hook Card", "version": 2, "about": "A title on a box that fits it, tilted a little, at the top for the first seconds: what the Short is about.", "length": 2.5, "timing": {"in": 0.3, "out": 0.25}, "cover": true,
 "params": {"title": {"type": "text", "label": "Title", "value": "Wait for it…"}, "box": {"type": "colour", "label": "Box", "value": "FFFFFF"}, "ink": {"type": "colour", "label": "Letters", "value": "111111"},
            "tilt": {"type": "number", "label": "Tilt", "value": "-2", "min": -10, "max": 10}, "y": {"type": "number", "label": "Down", "value": "0.16", "min": 0, "max": 1}},
 "layers": [{"text": "$title", "style": "bold", "size": 76, "color": "$ink", "outline": "", "box": "$box", "y": "$y", "rotation": "$tilt", "in": "pop", "out": "fade"}]})json",

R"json({"id": "stock.label", "name": "Name Tag", "version": 2, "about": "A label slides in low on the frame: a name, a place, a game.", "length": 2.5, "timing": {"in": 0.3, "out": 0.25},
 "params": {"name": {"type": "text", "label": "Name", "value": "Name"}, "box": {"type": "colour", "label": "Box", "value": "111111"}, "ink": {"type": "colour", "label": "Letters", "value": "FFFFFF"},
            "x": {"type": "number", "label": "Across", "value": "0.5", "min": 0, "max": 1}, "y": {"type": "number", "label": "Down", "value": "0.74", "min": 0, "max": 1}, "size": {"type": "number", "label": "Size", "value": "64", "min": 24, "max": 160}},
 "layers": [{"text": "$name", "style": "clean", "size": "$size", "color": "$ink", "outline": "", "box": "$box", "x": "$x", "y": "$y", "in": "slide-left", "out": "slide-left"}]})json",

R"json({"id": "stock.circle", "name": "Circle It", "about": "A ring pulses around something on screen, to point at it.", "length": 2, "timing": {"in": 0.2, "out": 0.2},
 "params": {"x": {"type": "number", "label": "Across", "value": "0.5", "min": 0, "max": 1}, "y": {"type": "number", "label": "Down", "value": "0.3", "min": 0, "max": 1},
            "size": {"type": "number", "label": "Size", "value": "0.3", "min": 0.05, "max": 0.9}, "colour": {"type": "colour", "label": "Colour", "value": "FF3B30"}},
 "layers": [{"shape": "ring", "color": "$colour", "w": "$size", "x": "$x", "y": "$y", "in": "zoom", "hold": "pulse", "out": "fade"}]})json",

R"json({"id": "stock.flash", "name": "Flash", "about": "A white flash, to hide a cut or hit a beat.", "length": 0.3, "timing": {"in": 0, "out": 0}, "cover": true,
 "layers": [{"shape": "rect", "color": "FFFFFF", "fill": true, "keys": [{"t": 0, "opacity": 1}, {"t": 0.3, "opacity": 0, "ease": "snap"}]}]})json",

R"json({"id": "stock.dip", "name": "Dip to Black", "about": "The picture goes to black and comes back, for a change of scene or an ending.", "length": 0.8, "timing": {"in": 0, "out": 0},
 "layers": [{"shape": "rect", "color": "000000", "fill": true, "keys": [{"t": 0, "opacity": 0}, {"t": 0.4, "opacity": 1}, {"t": 0.8, "opacity": 0}]}]})json",

R"json({"id": "stock.shake", "name": "Shake", "about": "The picture shakes, for a hit, a scream or a fall.", "length": 0.6, "timing": {"in": 0, "out": 0},
 "layers": [{"slot": "under", "fill": true, "scale": 1.06, "hold": "shake"}]})json",

R"json({"id": "stock.impact", "name": "Impact Zoom", "version": 2, "about": "The picture jolts closer with a blur and settles, for a punchline.", "length": 0.5, "timing": {"in": 0, "out": 0},
 "layers": [{"slot": "under", "fill": true, "keys": [{"t": 0, "scale": 1.22}, {"t": 0.5, "scale": 1, "ease": "snap"}]},
            {"slot": "under", "fill": true, "effects": ["zoom-blur"], "to": 0.2, "keys": [{"t": 0, "scale": 1.22, "opacity": 0.8}, {"t": 0.2, "scale": 1.12, "opacity": 0, "ease": "snap"}]}]})json",

R"json({"id": "stock.mono", "name": "Black and White", "about": "The picture loses its colour, for a sad or serious beat.", "length": 2, "timing": {"in": 0.2, "out": 0.2},
 "layers": [{"slot": "under", "fill": true, "effects": ["mono"], "in": "fade", "out": "fade"}]})json",

R"json({"id": "stock.vhs", "name": "VHS", "about": "An old tape look, for a flashback.", "length": 2, "timing": {"in": 0.15, "out": 0.15},
 "layers": [{"slot": "under", "fill": true, "effects": ["vhs"], "in": "fade", "out": "fade"},
            {"text": "▶ PLAY", "size": 54, "color": "FFFFFF", "outline": "", "x": 0.2, "y": 0.08, "hold": "pulse"}]})json",

R"json({"id": "stock.replay", "name": "Replay Panel", "about": "A stretch of the stream plays again and again in a panel, like a GIF. Pick the stretch in the inspector.", "length": 3, "timing": {"in": 0.3, "out": 0.25},
 "params": {"clip": {"type": "media", "label": "Stretch"}, "y": {"type": "number", "label": "Down", "value": "0.3", "min": 0, "max": 1}, "border": {"type": "colour", "label": "Border", "value": "FFFFFF"}},
 "layers": [{"shape": "round", "color": "$border", "w": 0.84, "h": 0.3, "y": "$y", "radius": 0.08, "in": "pop", "out": "pop", "hold": "sway"},
            {"slot": "$clip", "loop": true, "w": 0.8, "h": 0.27, "y": "$y", "in": "pop", "out": "pop", "hold": "sway"}]})json"
};
// clang-format on

std::vector<Book> decoded() {
    std::vector<Book> books;
    for (const char* text : texts) {
        try {
            books.push_back({Playbook::decode(text), std::nullopt});
        } catch (const Problem&) {
            // One that does not read is left out; the others are of use without it.
        }
    }
    return books;
}

}

const std::vector<Book>& Stock::books() {
    static const std::vector<Book> books = decoded();
    return books;
}

}
