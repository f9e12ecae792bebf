#include "app/desktop/drawn/FootagePictures.h"

#include "core/render/footage/Filmstrip.h"

namespace murbo {

FootagePictures::FootagePictures(Strips givenStrips, Levels givenLevels)
    : strips(std::move(givenStrips)), levels(std::move(givenLevels)) {
    pool.setMaxThreadCount(1); // a source's stills are made one after the other anyway
}

FootagePictures::~FootagePictures() {
    pool.clear();
    pool.waitForDone();
}

std::optional<Bitmap> FootagePictures::still(const UUID& source, int second) {
    auto* strip = strips(source);
    if (!strip || second < 0) return {};
    if (auto found = strip->still(second)) return found;
    const Wish wish{source, second};
    if (failed.contains(wish) || !wished.insert(wish).second) return {};
    const auto make = [this, strip, wish] {
        const bool found = strip->make(wish.second).has_value();
        QMetaObject::invokeMethod(
            this, [this, wish, found] { finish(wish, found); }, Qt::QueuedConnection);
    };
    pool.start(make, ++order);
    return {};
}

void FootagePictures::forget() {
    pool.clear();
    wished.clear();
}

void FootagePictures::finish(const Wish& wish, bool found) {
    wished.erase(wish);
    if (!found) failed.insert(wish);
    emit changed();
}

}
