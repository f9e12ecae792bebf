#include "app/desktop/timeline/TimelineTheme.h"

namespace murbo::TimelineTheme {
namespace {

using Paint = TimelineBlock::Paint;

struct PaintName {
    Paint paint;
    const char* name;
};
constexpr PaintName names[] = {{Paint::split, "split"},
                               {Paint::content, "content"},
                               {Paint::face, "face"},
                               {Paint::layer, "layer"},
                               {Paint::cut, "cut"},
                               {Paint::caption, "caption"},
                               {Paint::bigCaption, "bigCaption"},
                               {Paint::hiddenCaption, "hiddenCaption"},
                               {Paint::overlay, "overlay"},
                               {Paint::sound, "sound"},
                               {Paint::music, "music"}};

QColor colour(const QVariantMap& colours, const QString& name) {
    return QColor(colours.value(name).toString());
}

TimelineColours::BlockColours block(const QVariantMap& colours, const QString& name) {
    return {colour(colours, name + ".fill"), colour(colours, name + ".edge"),
            colour(colours, name + ".label")};
}

}

TimelineColours of(const QVariantMap& colours) {
    TimelineColours made;
    made.canvas = colour(colours, "canvas");
    made.row = colour(colours, "row");
    made.ruler = colour(colours, "ruler");
    made.tick = colour(colours, "tick");
    made.time = colour(colours, "time");
    made.wave = colour(colours, "wave");
    made.quiet = colour(colours, "quiet");
    made.picked = colour(colours, "picked");
    made.notice = colour(colours, "notice");
    for (const auto& [paint, name] : names) made.blocks[paint] = block(colours, name);
    made.muted = block(colours, "muted");
    return made;
}

}
