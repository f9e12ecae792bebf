#include "app/desktop/drawn/FootagePictures.h"

#include "core/intake/samples/Loudness.h"
#include "core/model/Source.h"
#include "core/render/footage/Filmstrip.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <exception>

namespace murbo {
namespace {

constexpr std::size_t maxFiles = 200;
constexpr double widest = 320;
constexpr int cardWidth = 240;
constexpr double pixels = widest * 240;

/// The first picture of a file, small. Nothing of one that is none, or not to be read.
std::optional<Bitmap> readSmall(const std::filesystem::path& file) try {
    if (!std::filesystem::is_regular_file(file)) return {}; // anything else could keep its reader waiting
    PlaybookMedia media;
    if (const auto image = media.image(file, pixels)) {
        const auto whole = image->extent();
        const double scale = std::min(1.0, widest / std::max(whole.width, 1.0));
        const auto small = image->transformed(Transform().scaled(scale, scale));
        return Canvas::bitmap(small, small.extent());
    }
    return Filmstrip({.path = file.string()}).make(0);
} catch (const std::exception&) {
    return {};
}

/// Nothing of what can't be drawn.
std::optional<Bitmap> drawSmall(const GeneratedCard& card) try {
    return card.draw(cardWidth);
} catch (const std::exception&) {
    return {};
}

/// Silence for a file that can't be read.
std::shared_ptr<const Loudness> listen(const std::filesystem::path& file) try {
    return std::make_shared<const Loudness>(
        Loudness{Loudness::measure(file, Loudness::perSecond), Loudness::perSecond});
} catch (const std::exception&) {
    return std::make_shared<const Loudness>();
}

}

FootagePictures::FootagePictures(Strips givenStrips, Levels givenLevels, Cards givenCards)
    : strips(std::move(givenStrips)), levels(std::move(givenLevels)), cards(std::move(givenCards)) {
    pool.setMaxThreadCount(1); // a source's stills are made one after the other anyway
}

FootagePictures::~FootagePictures() {
    pool.clear();
    pool.waitForDone();
}

std::optional<Bitmap> FootagePictures::still(const UUID& source, int second) {
    if (second < 0) return card({source, second});
    auto* strip = strips(source);
    if (!strip) return {};
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

std::optional<Bitmap> FootagePictures::card(const Wish& wish) {
    if (const auto kept = drawn.find(wish); kept != drawn.end()) return kept->second;
    const auto wanted = cards ? cards(wish.first) : std::nullopt;
    if (!wanted || failed.contains(wish) || !wished.insert(wish).second) return {};
    if (drawn.size() >= maxFiles) drawn.clear();
    const auto make = [this, wish, card = *wanted] {
        auto picture = drawSmall(card);
        QMetaObject::invokeMethod(
            this,
            [this, wish, picture] {
                if (picture) drawn.emplace(wish, *picture);
                finish(wish, picture.has_value());
            },
            Qt::QueuedConnection);
    };
    pool.start(make, ++order);
    return {};
}

std::optional<Bitmap> FootagePictures::ofFile(const std::filesystem::path& file) {
    const auto kept = files.find(file);
    if (kept != files.end()) return kept->second;
    if (files.size() >= maxFiles) files.clear();
    files[file];
    pool.start([this, file] {
        QMetaObject::invokeMethod(
            this, [this, file, read = readSmall(file)] { keep(file, read); }, Qt::QueuedConnection);
    });
    return {};
}

const Loudness* FootagePictures::loudness(const UUID& source) {
    const auto* known = levels(source);
    if (known)
        listened.erase(source);
    else
        listened.insert(source);
    return known;
}

bool FootagePictures::isBusy() {
    std::erase_if(listened, [this](const UUID& source) { return levels(source) != nullptr; });
    return !listened.empty() || !pool.waitForDone(0);
}

const Loudness* FootagePictures::loudnessOf(const std::filesystem::path& file) {
    const auto kept = sounds.find(file);
    if (kept != sounds.end()) return kept->second.get();
    if (sounds.size() >= maxFiles) sounds.clear();
    sounds[file];
    pool.start([this, file] {
        QMetaObject::invokeMethod(
            this,
            [this, file, heard = listen(file)] {
                sounds[file] = heard;
                emit changed();
            },
            Qt::QueuedConnection);
    });
    return nullptr;
}

void FootagePictures::keep(const std::filesystem::path& file, std::optional<Bitmap> read) {
    files[file] = std::move(read);
    emit changed();
}

void FootagePictures::finish(const Wish& wish, bool found) {
    wished.erase(wish);
    if (!found) failed.insert(wish);
    emit changed();
}

}
