#include "app/desktop/timeline/TimelineScene.h"

#include "app/editor/Timecode.h"
#include "core/render/footage/Filmstrip.h"

#include <algorithm>
#include <cmath>

namespace murbo::TimelineScene {
namespace {

using Paint = TimelineBlock::Paint;

constexpr double minLabel = 28; ///< points: a narrower block has no words
constexpr double minStrip = 6;  ///< points: of a narrower block nobody would know a picture
constexpr double wideLabel = 100000;
constexpr double labelPadding = 6;
constexpr double captionPadding = 3;
constexpr double pickedFrame = 2;
constexpr double ratio = 16.0 / 9; ///< of a still's place
constexpr double cardRatio = 1.25; ///< of a generated cut's picture: its words stand in its middle
constexpr double tileWidth = DrawList::stripesWidth; ///< points: of a wave too
constexpr double rulerLeast = 64;                    ///< points between times
constexpr double beside = 8; ///< points from a time's mark to its words: the playhead's head is free
constexpr double dash = 4;
constexpr double dashedFrom = 14; ///< points of a quiet stretch whose sides are drawn
constexpr double tickHeight = 9;
constexpr double icon = 12;
constexpr double missingIcon = 18; ///< where a strip's pictures would be
constexpr double besideSign = 40;  ///< points that words beside one need
constexpr float behindWords = 0.3F;

/// Draws one block after the other.
class Blocks {
public:
    Blocks(const TimelineLayout& shown, const TimelineSpan& part, const TimelineColours& theme)
        : layout(shown), span(part), colours(theme) {}

    void draw(const TimelineBlock& block, bool picked, bool main) {
        const auto place = rect(block);
        const auto& paint = block.muted ? colours.muted : colours.blocks.at(block.paint);
        list.fill(place, paint.fill);
        if (block.row == TimelineRow::picture)
            drawCut(block, place, paint);
        else {
            if (block.row == TimelineRow::sounds || block.row == TimelineRow::music)
                drawFileWave(block, place, paint);
            if (block.missing || block.paint == Paint::hiddenCaption) drawStripes(block, place, paint);
            const auto rest = drawSign(block, place, paint);
            if (rest == place || rest.width() >= besideSign) label(block, rest, paint);
        }
        list.fill({place.left(), place.top(), place.width(), 1}, paint.edge);
        // The pieces of one line stand on one line.
        if (block.row == TimelineRow::captions && block.pick.piece)
            list.fill({place.left(), place.bottom() - 2, place.width() + 1, 2}, paint.edge);
        if (block.missing) list.frame(place, 1, colours.notice);
        if (picked) list.frame(place, pickedFrame, colours.picked);
        if (main) list.fill({place.left() + 4, place.top() + 4, 4, 4}, colours.picked);
    }

    /// The place that is kept free for a cut that is carried.
    void drawRoom(const Stretch& room) {
        const auto* row = layout.track(TimelineRow::picture);
        if (!row) return;
        auto faint = colours.picked;
        faint.setAlphaF(0.1F);
        auto edge = colours.picked;
        edge.setAlphaF(0.6F);
        const QRectF place(span.x(room.from), row->top, room.length() * span.scale - 1, row->height);
        list.fill(place, faint);
        list.frame(place, 1, edge);
    }

    DrawList list;

private:
    /// A hair is left free after each block, so that neighbours are seen apart.
    QRectF rect(const TimelineBlock& block) const {
        const double left = span.x(block.from);
        const double width = std::max(block.length() * span.scale - 1, 1.0);
        return {left, layout.top(block), width, layout.blockHeight(block)};
    }

    /// Draws the icon at a block's left, before its words. Gives the place that remains for them.
    QRectF drawSign(const TimelineBlock& block, const QRectF& place,
                    const TimelineColours::BlockColours& paint) {
        const bool overlay = block.pick.kind == Pick::Kind::overlay;
        if (overlay && (block.file || block.source)) return drawThumbnail(block, place);
        return block.row == TimelineRow::shots ? drawIcon(block, place, paint) : place;
    }

    /// Where a sign of that size stands, at the left of what is seen of a block; nothing without room for it.
    static std::optional<QRectF> signPlace(const QRectF& place, const QSizeF& size, double padding) {
        const QRectF there({std::max(place.left(), 0.0) + padding, place.center().y() - size.height() / 2},
                           size);
        return place.right() - there.right() < padding ? std::nullopt : std::optional(there);
    }

    static QRectF rightOf(QRectF place, const QRectF& sign) {
        place.setLeft(sign.right());
        return place;
    }

    QRectF drawIcon(const TimelineBlock& block, const QRectF& place,
                    const TimelineColours::BlockColours& paint) {
        const auto there = signPlace(place, {icon, icon}, labelPadding);
        if (!there) return place;
        const auto* name = block.paint == Paint::split  ? "rows-2"
                           : block.paint == Paint::face ? "user-round"
                                                        : "gamepad-2";
        list.items.emplace_back(
            DrawList::Symbol{*there, block.byBook ? "layout-template" : name, paint.label});
        return rightOf(place, *there);
    }

    /// The picture that an overlay shows.
    QRectF drawThumbnail(const TimelineBlock& block, const QRectF& place) {
        const double height = place.height() - 3;
        const double width = std::round(height * ratio);
        const auto there = signPlace(place, {width, height}, 1);
        if (!there) return place;
        if (block.file)
            list.items.emplace_back(DrawList::FilePicture{*there, *block.file});
        else
            list.items.emplace_back(
                DrawList::Still{*there, *block.source, static_cast<int>(block.at), width, 0});
        return rightOf(place, *there);
    }

    /// Beneath the name, so faint that this can be read.
    void drawFileWave(const TimelineBlock& block, const QRectF& place,
                      const TimelineColours::BlockColours& paint) {
        if (!block.file) return;
        auto faint = paint.edge;
        faint.setAlphaF(behindWords);
        drawTiles(block, place.adjusted(0, 2, 0, -1), [&](const QRectF& tile, double from, double to) {
            list.items.emplace_back(DrawList::Wave{tile, {}, from, to, faint, *block.file});
        });
    }

    void label(const TimelineBlock& block, const QRectF& place, const TimelineColours::BlockColours& paint) {
        const bool caption = block.row == TimelineRow::captions;
        const double padding = caption ? captionPadding : labelPadding;
        const double left = std::max(place.left(), 0.0) + padding;
        const double width = std::min(place.right() - padding - left, wideLabel);
        if (place.width() < minLabel || width < minLabel / 2) return;
        auto text = QString::fromStdString(block.label);
        if (block.muted) text += ", muted";
        list.items.emplace_back(DrawList::Label{{left, place.top(), width, place.height()},
                                                text,
                                                paint.label,
                                                !caption,
                                                block.paint == Paint::bigCaption});
    }

    void drawCut(const TimelineBlock& block, QRectF place, const TimelineColours::BlockColours& paint) {
        if (layout.look.names) {
            label(block, {place.left(), place.top(), place.width(), TimelineLayout::nameHeight}, paint);
            place.setTop(place.top() + TimelineLayout::nameHeight);
        }
        if (block.card != 0)
            drawCard(block, {place.left(), place.top(), place.width(), layout.look.filmstrip});
        if (!block.source) return;
        const QRectF strip(place.left(), place.top(), place.width(), layout.look.filmstrip);
        if (block.missing) {
            drawStripes(block, place, paint);
            if (const auto there = signPlace(strip, {missingIcon, missingIcon}, labelPadding))
                list.items.emplace_back(DrawList::Symbol{*there, "file-question", colours.notice});
        } else {
            drawStrip(block, strip);
        }
        const QRectF wave(place.left(), strip.bottom() + 1, place.width(), layout.look.waveform);
        drawWave(block, wave, block.muted || block.silent ? colours.muted.edge : colours.wave);
        for (const auto& quiet : block.quiet) {
            const double left = std::max(span.x(quiet.from), place.left());
            const double right = std::min(span.x(quiet.to), place.right());
            list.fill({left, place.top(), right - left, place.height()}, colours.quiet);
            if (right - left < dashedFrom) continue;
            for (double y = place.top() + 2; y < place.bottom() - 2; y += 2 * dash) {
                list.fill({left, y, 1, dash}, paint.edge);
                list.fill({right - 1, y, 1, dash}, paint.edge);
            }
        }
        // A seam within a word: its tick stands where the name is.
        const double top = layout.top(block);
        if (block.startsInWord) list.fill({place.left(), top, 3, tickHeight}, colours.notice);
        if (block.endsInWord) list.fill({place.right() - 3, top, 3, tickHeight}, colours.notice);
    }

    /// Stills lie on a grid of the source's own time, so that a trim does not move them.
    void drawStrip(const TimelineBlock& block, const QRectF& strip) {
        const double tile = strip.height() * ratio;
        if (tile < 8 || strip.width() < minStrip) return;
        const int step = Filmstrip::step(tile, span.scale);
        const double wide = step * span.scale;
        const double first = block.at + std::max(-strip.left(), 0.0) / span.scale;
        const double last = block.at + std::min(span.width - strip.left(), strip.width()) / span.scale;
        for (int second = static_cast<int>(std::floor(first / step)) * step; second < last; second += step) {
            const double x = strip.left() + (second - block.at) * span.scale;
            for (double part = 0; part < wide; part += tile) {
                const double left = std::max(x + part, strip.left());
                const double right = std::min({x + part + tile, x + wide, strip.right()});
                if (right - left < 0.5 || left > span.width || right < 0) continue;
                list.items.emplace_back(DrawList::Still{{left, strip.top(), right - left, strip.height()},
                                                        *block.source,
                                                        second,
                                                        tile,
                                                        left - x - part});
            }
        }
    }

    /// The picture of a generated cut, as often as it fits, each time with its middle.
    void drawCard(const TimelineBlock& block, const QRectF& strip) {
        if (strip.width() < minStrip || strip.height() < minStrip) return;
        const double times = std::max(std::round(strip.width() / (strip.height() * cardRatio)), 1.0);
        const double tile = strip.width() / times;
        const double first = std::max(std::floor(-strip.left() / tile), 0.0);
        for (double at = first; at < times && strip.left() + at * tile < span.width; ++at)
            list.items.emplace_back(
                DrawList::Still{{strip.left() + at * tile, strip.top(), tile, strip.height()},
                                block.pick.id,
                                block.card,
                                tile,
                                0});
    }

    void drawWave(const TimelineBlock& block, const QRectF& wave, const QColor& colour) {
        drawTiles(block, wave, [&](const QRectF& tile, double from, double to) {
            list.items.emplace_back(DrawList::Wave{tile, *block.source, from, to, colour});
        });
    }

    /// What is missing or hidden is striped, beneath its words.
    void drawStripes(const TimelineBlock& block, const QRectF& place,
                     const TimelineColours::BlockColours& paint) {
        auto faint = paint.edge;
        faint.setAlphaF(behindWords);
        drawTiles(block, place, [&](const QRectF& tile, double, double) {
            list.items.emplace_back(DrawList::Stripes{tile & place, faint});
        });
    }

    /// Calls for each tile of a place that can be seen, with the seconds that it shows.
    template <class Draw>
    void drawTiles(const TimelineBlock& block, const QRectF& place, Draw draw) {
        if (place.height() < 2) return;
        const double seconds = tileWidth / span.scale;
        for (double from = 0; from < block.length(); from += seconds) {
            const double to = std::min(from + seconds, block.length());
            const QRectF tile(place.left() + from * span.scale, place.top(), (to - from) * span.scale,
                              place.height());
            if (tile.right() < 0 || tile.left() > span.width || tile.left() >= place.right()) continue;
            draw(tile, block.at + from, block.at + to);
        }
    }

    const TimelineLayout& layout;
    const TimelineSpan& span;
    const TimelineColours& colours;
};

}

DrawList rows(const TimelineLayout& layout, const TimelineSpan& span, const std::vector<Pick>& picks,
              const TimelineColours& colours, const Parted& parted) {
    Blocks blocks(layout, span, colours);
    for (const auto& track : layout.tracks)
        blocks.list.fill({0, track.top, span.width, track.height}, colours.row);
    if (parted.room) blocks.drawRoom(*parted.room);
    const auto draw = [&](const TimelineBlock& block) {
        if (block.to <= span.from || block.from >= span.to()) return;
        const bool picked = block.pickable && std::ranges::find(picks, block.pick) != picks.end();
        blocks.draw(block, picked, picked && picks.size() > 1 && picks.back() == block.pick);
    };
    for (const auto& block : layout.blocks) {
        if (block.pick.kind == Pick::Kind::cut && block.pick.id == parted.carried) continue;
        const auto aside =
            block.pick.kind == Pick::Kind::cut ? parted.aside.find(block.pick.id) : parted.aside.end();
        draw(aside == parted.aside.end() ? block : block.movedBy(aside->second));
    }
    if (parted.ghost) blocks.draw(*parted.ghost, true, false);
    return std::move(blocks.list);
}

DrawList freeFootage(const TimelineLayout& layout, const TimelineSpan& span, const TimelineBlock& cut,
                     const TimelineColours& colours) {
    DrawList list;
    if (cut.sourceLength <= 0) return list;
    const double top = layout.top(cut) + (layout.look.names ? TimelineLayout::nameHeight : 0);
    const double height = std::max(layout.look.filmstrip + layout.look.waveform, 8.0);
    auto faint = colours.picked;
    faint.setAlphaF(0.16F);
    auto edge = colours.picked;
    edge.setAlphaF(0.5F);
    const auto strip = [&](double from, double to) {
        const double left = std::max(span.x(from), -2.0);
        const double right = std::min(span.x(to), span.width + 2);
        if (right - left < 1) return;
        list.fill({left, top, right - left, height}, faint);
        list.frame({left, top, right - left, height}, 1, edge);
    };
    strip(cut.from - cut.at, cut.from);
    strip(cut.to, cut.to + std::max(cut.sourceLength - cut.at - cut.length(), 0.0));
    return list;
}

double rulerStep(double scale) {
    for (const double step : {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 15.0, 30.0, 60.0, 120.0, 300.0, 600.0,
                              900.0, 1800.0, 3600.0, 7200.0})
        if (step * scale >= rulerLeast) return step;
    return 14400;
}

DrawList ruler(const TimelineSpan& span, const TimelineColours& colours) {
    DrawList list;
    list.fill({0, 0, span.width, TimelineLayout::rulerHeight}, colours.ruler);
    const double step = rulerStep(span.scale);
    for (auto mark = static_cast<std::int64_t>(std::floor(span.from / step)); mark * step < span.to();
         ++mark) {
        const double time = static_cast<double>(mark) * step;
        if (time < 0) continue;
        const double x = span.x(time);
        list.fill({x, TimelineLayout::rulerHeight - 8, 1, 8}, colours.tick);
        const auto text = step < 1 ? Timecode::fine(time + 1e-6) : Timecode::clock(time + 1e-6);
        list.items.emplace_back(
            DrawList::Label{{x + beside, 0, step * span.scale - beside - 2, TimelineLayout::rulerHeight},
                            QString::fromStdString(text),
                            colours.time,
                            true,
                            false});
    }
    return list;
}

}
