#include "core/playbooks/PlaybookGuide.h"

#include "core/model/CaptionStyle.h"
#include "core/model/EaseCurve.h"
#include "core/model/Entrance.h"
#include "core/playbooks/Drift.h"
#include "core/playbooks/Effect.h"
#include "core/playbooks/Hold.h"
#include "core/playbooks/LayerBlend.h"
#include "core/playbooks/LayerShape.h"
#include "core/playbooks/ParameterType.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace murbo {
namespace {

template <HasRawTexts Word>
std::string listed(const char* between = ", ") {
    return fmt::format("{}", fmt::join(rawTexts(Word{}), between));
}

std::string builtInStyles() {
    std::vector<std::string> ids;
    for (const auto& style : CaptionStyle::builtIn())
        if (style.id) ids.push_back(*style.id);
    return fmt::format("{}", fmt::join(ids, ", "));
}

}

// clang-format off
std::string PlaybookGuide::text() {
    return std::string(R"guide(A playbook is a small motion-graphics clip laid over a video (vertical 1080 × 1920, or horizontal, square, 4:5): a sticker, a burst, a title card, a transition, a look, a picture-in-picture replay. It is JSON; nothing in it runs. The app draws it the same in the preview and the export.

TOP LEVEL
name (needed), about (one line, what it is for), length (natural seconds, default 3), timing {"in": seconds of entrance, "out": seconds of exit; default 0.3 each}, cover (true: drawn over the captions too), mute (true: the video's own sound is silent under it by default), params, layers (needed, bottom to top). id and version are given by the app; keep the id when changing a playbook.

TIMING. Placed for longer than its length, the playbook plays its entrance, holds its middle (keyframes stop at the last middle value, videos loop if they loop, hold motions carry on) and plays its exit at the end. The editor can also stretch it, slowing everything to fit. A layer's from/to are seconds of the natural length; a time inside the exit stays that far from the end.

LAYOUTS. "kind": "layout" makes a playbook a way to frame a shot, chosen like Split, Content or Face (only those three are built in). Its layers are panels: slots of face, content or picture (the whole recording), cropped to fill their w × h, a face cropped toward its top. "shot": true on a panel gives it the shot's zoom, move and position. "captions" says where captions sit when the style puts them on the seam. Rounded panels take radius; a white shape a little larger behind makes an edge. The app's own Wide, Face on Top, Face Corner and Reaction are layouts: read them for examples.

GENERATORS. "kind": "generator" makes frames of their own: a title card, a colour, a background. Put on the timeline as a clip, it takes time between the footage and is drawn on black, so its first layer usually fills the frame (a shape with fill: true, or a gradient). Dropped over the picture instead, it is laid over like any playbook. Its entrance plays at the start of the clip and its exit at the end, however long the clip is trimmed. The app's own Solid Colour, Gradient and Title Card are generators: read them for examples.

PARAMS: what the editor fills in for each placement. {"title": {"type": "text", "label": "Title", "value": "default"}}. Types: )guide") +
           listed<ParameterType>() +
           R"guide(. number takes min and max; choice takes options. A $name inside a longer text fills in its value, so a choice can pick a file: {"image": "assets/$emote.png"} with an "emote" choice of the file names. A media value is a file, or face, content, under (see slot), or rec:START-END (seconds of the recording). Layers use a parameter as "$title"; numbers (x, y, w, h, scale, rotation, opacity, size) can be "$name" too, or a sum of numbers and parameters with + - * / and brackets: "1-$split", "$size*0.675+0.004".

LAYERS: exactly one of
  image: a picture file. video: a video file (alpha video works; mp4/mov). Paths are assets/name inside the playbook; while drafting you may give an absolute path on this Mac and write_playbook copies the file in.
  text: letters, in a caption style (style: )guide" +
           builtInStyles() +
           R"guide( or the owner's, or a $parameter), with size (points), color, outline ("" for none), box (a colour behind each line, fitted to it). Emoji work.
  shape: )guide" +
           listed<LayerShape>() +
           R"guide( with color, w, h, radius (share of the shorter side); fill: true covers the frame. A rect with gradient (a second colour) fades from color at its top to gradient at its bottom.
  particles: emoji or letters to scatter, comma separated ("💗,💕"), or confetti; with count, w (each one's size), drift ()guide" +
           listed<Drift>() +
           R"guide(), seed; burst starts from x, y.
  slot: under (the video's picture so far, for effects, shakes and zooms), face or content (the stream's face or content box, live), picture (the whole recording, live), a $media parameter, or a file. radius rounds a picture's corners too.
  sound: an audio file, played when the layer comes on (from), with volume 0 to 1. A video's sound plays this way too: a sound layer naming the same file.
  start (video and sound): where in the file it starts, in seconds, to use the middle of a longer clip.
PLACE: x, y (the centre, 0 to 1 from the top left; default 0.5), w (share of the frame's width; height follows the picture) and h (with w, the picture is cropped to fill w × h), fill (cover the frame), scale, rotation (degrees clockwise), opacity, blend ()guide" +
           listed<Blend>() +
           R"guide().
MOVE: in, out ()guide" +
           listed<Entrance>() +
           R"guide(; an exit plays the entrance backwards, so slide-left leaves to the left), hold ()guide" +
           listed<Hold>() +
           R"guide(), or keys: [{"t": seconds, "x", "y", "scale", "rotation", "opacity", "ease": )guide" +
           listed<EaseCurve>("/") +
           R"guide(}] (keys override the layer's own values; each key eases from the one before).
VIDEO: loop, bounce (back and forth), speed; key: a green-screen colour to take out, like "00FF00".
CUT-OUT: cutout: true lifts the subject out of its background, on any picture, video or slot. {"slot": "face", "cutout": true} is the streamer's avatar alone, live, ready to slide over a paper background.
LOOK: effects: [)guide" +
           listed<Effect>() +
           R"guide(], applied to the layer (on an under slot, to the picture).

EXAMPLE, a replay of a stretch in a framed panel, with a word that pops:
{"name": "Replay", "about": "A stretch plays again in a panel.", "length": 3, "timing": {"in": 0.3, "out": 0.25},
 "params": {"clip": {"type": "media", "label": "Stretch"}, "word": {"type": "text", "value": "AGAIN?!"}},
 "layers": [{"shape": "round", "color": "FFFFFF", "w": 0.84, "h": 0.3, "y": 0.3, "radius": 0.08, "in": "pop", "out": "pop", "hold": "sway"},
            {"slot": "$clip", "loop": true, "w": 0.8, "h": 0.27, "y": 0.3, "in": "pop", "out": "pop", "hold": "sway"},
            {"text": "$word", "style": "bold", "size": 110, "y": 0.5, "rotation": -6, "from": 0.4, "in": "stamp", "out": "fade"}]}

WORKING: render_playbook draws frames of a draft (or a saved playbook) over the video, without saving and without asking the owner, so draft and look as often as needed. write_playbook saves it to the owner's library, after the owner says yes on their screen; each save is a new version and the old one is kept. set_overlays then lays it on a video.)guide";
}
// clang-format on

}
