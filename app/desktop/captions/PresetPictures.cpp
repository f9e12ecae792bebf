#include "app/desktop/captions/PresetPictures.h"

#include "app/desktop/drawn/Painted.h"
#include "core/render/Stills.h"
#include "platform/image/draw/Bands.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr double widestShown = 0.9;    ///< of the frame's shorter side: captions are a little narrower
constexpr double specimenShare = 0.86; ///< of the card's width that it takes at most
constexpr Colour ground{0x2A, 0x2D, 0x33, 255};

/// The picture's part, scaled to the card.
QImage card(const Image& picture, const Rect& part, QSize size) {
    const auto scaled =
        picture.transformed(Transform()
                                .translated(-part.x, -part.y)
                                .scaled(size.width() / part.width, size.height() / part.height));
    Bitmap target(size.width(), size.height());
    Bands::draw(scaled.over(Image::colour(ground)), target);
    return Painted::image(target);
}

QImage specimenCard(const CaptionStyle& style, const PresetPictures::PresetWish& wish) {
    const auto size = wish.size;
    const auto words = Stills::caption(wish.specimen, style, wish.fonts);
    const auto extent = words ? words->extent() : Rect{0, 0, 1080, 600};
    const double wide = std::max(extent.width / specimenShare, 600.0);
    const double high = wide * size.height() / size.width();
    const Rect part{extent.x + (extent.width - wide) / 2, extent.y + (extent.height - high) / 2, wide, high};
    return card(words.value_or(Image()), part, size);
}

/// Height of the captions as a share of the frame.
double middle(const Plan& plan, double time, const CaptionStyle& style) {
    const double usual = style.y.value_or(0.3);
    const auto* placed = plan.shot(time);
    const bool upright = plan.frame.width < plan.frame.height;
    if (!placed || !upright || !style.seam.value_or(true) || plan.layout(placed->shot)) return usual;
    if (placed->shot.layout != Shot::Layout::split) return usual;
    return placed->shot.split.value_or(plan.framing(placed->shot.source).split);
}

}

PresetPictures::PresetPictures() {
    pool.setMaxThreadCount(1);
}

PresetPictures::~PresetPictures() {
    pool.clear();
    pool.waitForDone();
}

Rect PresetPictures::shownPart(const Plan& plan, double time, const CaptionStyle& style, QSize size) {
    const double wide = widestShown * std::min(plan.frame.width, plan.frame.height);
    const double high = std::min(wide * size.height() / size.width(), plan.frame.height);
    const double y = middle(plan, time, style) * plan.frame.height - high / 2;
    return {(plan.frame.width - wide) / 2, std::clamp(y, 0.0, plan.frame.height - high), wide, high};
}

QHash<QString, QImage> PresetPictures::drawn(const PresetWish& wish) {
    QHash<QString, QImage> made;
    const auto name = [](const CaptionStyle& style) { return QString::fromStdString(style.id.value_or("")); };
    const bool shows = wish.video && !wish.video->cuts.empty();
    const auto plan = shows ? Plan::video(*wish.video, wish.project, wish.fonts, wish.package) : Plan();
    const auto moment = shows ? CaptionCue::shown(wish.at, plan.cues) : std::nullopt;
    if (!moment) {
        for (const auto& style : wish.styles) made.insert(name(style), specimenCard(style, wish));
        return made;
    }
    const auto pictures =
        Stills::styled({*wish.video, wish.project, wish.missing}, *moment, plan, wish.styles);
    for (std::size_t at = 0; at < wish.styles.size(); ++at) {
        const auto& style = wish.styles[at];
        made.insert(name(style), card(pictures[at], shownPart(plan, *moment, style, wish.size), wish.size));
    }
    return made;
}

void PresetPictures::ask(PresetWish wish) {
    pool.clear();
    const auto turn = ++asked;
    pool.start([this, turn, wanted = std::move(wish)] {
        QHash<QString, QImage> made;
        try {
            made = drawn(wanted);
        } catch (const std::exception&) {
            // What can't be drawn has no picture; its card has its name.
        }
        const auto arrive = [this, turn, made] {
            done = std::max(done, turn);
            if (turn != asked) return;
            kept = made;
            emit changed();
        };
        QMetaObject::invokeMethod(this, arrive, Qt::QueuedConnection);
    });
}

}
