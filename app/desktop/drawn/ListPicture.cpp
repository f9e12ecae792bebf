#include "app/desktop/drawn/ListPicture.h"

#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/drawn/IconPicture.h"
#include "app/desktop/drawn/Painted.h"

#include <cmath>

namespace murbo {
namespace {

constexpr qsizetype maxTexts = 4000;
constexpr std::size_t maxStills = 1200;
constexpr std::size_t keptTurns = 240; ///< pictures for which what is not used is kept
constexpr double anyWidth = 1e6;

}

bool ListPicture::paint(DrawList list, const PictureGround& ground, FootagePictures* pictures) {
    if (whole && ground == on && list == painted) return false;
    if (ground.ratio != on.ratio) {
        labels.clear();
        symbols.clear();
    }
    on = ground;
    painted = std::move(list);
    footage = pictures;
    auto& canvas = canvases[++turn % canvases.size()];
    const QSize pixels(static_cast<int>(std::ceil(on.size.width() * on.ratio)),
                       static_cast<int>(std::ceil(on.size.height() * on.ratio)));
    if (canvas.size() != pixels) canvas = QImage(pixels, QImage::Format_RGB32);
    canvas.fill(on.colour);
    painter.begin(&canvas);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    whole = true;
    for (const auto& item : painted.items)
        whole &= std::visit([this](const auto& one) { return draw(one); }, item);
    painter.end();
    dropUnused();
    return true;
}

QRect ListPicture::onDevice(const QRectF& rect) const {
    const auto snapped = DrawList::onPixels(rect, on.ratio);
    return QRectF(snapped.topLeft() * on.ratio, snapped.size() * on.ratio).toRect();
}

bool ListPicture::draw(const DrawList::Patch& patch) {
    painter.fillRect(onDevice(patch.rect), patch.colour);
    return true;
}

bool ListPicture::draw(const DrawList::Label& label) {
    auto& measured = texts[{label.text, label.bold}];
    if (measured.used == 0) measured.value = MeasuredText(label.text, label.bold);
    measured.used = turn;
    const auto words = measured.value.fitting(label.rect.width(), label.ellipsis);
    if (words.isEmpty()) return true;
    auto& picture = labels[{words, (std::uint64_t{label.colour.rgba()} << 1) | std::uint64_t{label.bold}}];
    if (picture.used == 0) {
        auto all = label;
        all.text = words;
        all.rect.setWidth(anyWidth);
        picture.value = Painted::label(all, on.ratio);
    }
    picture.used = turn;
    const double height = picture.value.height() / on.ratio;
    const double top = label.rect.top() + std::round((label.rect.height() - height) / 2);
    painter.drawImage(onDevice({std::round(label.rect.left()), top, 1, 1}).topLeft(), picture.value);
    return true;
}

bool ListPicture::draw(const DrawList::Wave& wave) {
    const auto* loudness = !footage            ? nullptr
                           : wave.file.empty() ? footage->loudness(wave.source)
                                               : footage->loudnessOf(wave.file);
    if (!loudness) return false;
    Painted::wave(painter, onDevice(wave.rect), wave.from, wave.to, wave.colour, *loudness);
    return true;
}

bool ListPicture::draw(const DrawList::Still& strip) {
    const auto* picture = still(strip.source, strip.second);
    if (!picture) return false;
    auto part = Painted::filling(picture->size(), strip.width, strip.rect.height());
    const double scale = part.width() / strip.width;
    part = {part.left() + strip.skip * scale, part.top(), strip.rect.width() * scale, part.height()};
    fill(strip.rect, *picture, part);
    return true;
}

bool ListPicture::draw(const DrawList::FilePicture& file) {
    auto found = files.find(file.file);
    if (found == files.end()) {
        const auto picture = footage ? footage->ofFile(file.file) : std::nullopt;
        if (!picture) return false;
        found = files.emplace(file.file, LatelyUsed<QImage>{Painted::image(*picture), 0}).first;
    }
    found->second.used = turn;
    const auto& picture = found->second.value;
    fill(file.rect, picture, Painted::filling(picture.size(), file.rect.width(), file.rect.height()));
    return true;
}

bool ListPicture::draw(const DrawList::Symbol& symbol) {
    const auto place = onDevice(symbol.rect);
    const auto colour = symbol.colour.name().mid(1);
    auto& kept = symbols[QString("%1|%2|%3").arg(place.width()).arg(symbol.name, colour)];
    if (kept.used == 0) kept.value = IconPicture::of(symbol.name, colour, place.size());
    kept.used = turn;
    painter.drawImage(place.topLeft(), kept.value);
    return true;
}

bool ListPicture::draw(const DrawList::Stripes& stripes) {
    const auto place = onDevice(stripes.rect);
    auto& kept = symbols[QString("stripes|%1|%2").arg(place.height()).arg(stripes.colour.rgba())];
    if (kept.used == 0) kept.value = Painted::stripes(place.height() / on.ratio, stripes.colour, on.ratio);
    kept.used = turn;
    painter.drawImage(place.topLeft(), kept.value, QRect({}, place.size()));
    return true;
}

/// Puts a part of a picture into a place.
void ListPicture::fill(const QRectF& rect, const QImage& picture, const QRectF& part) {
    painter.drawImage(QRectF(rect.topLeft() * on.ratio, rect.size() * on.ratio), picture, part);
}

/// A still stays at hand for as long as it is shown, whatever the strip itself keeps.
const QImage* ListPicture::still(const UUID& source, int second) {
    auto found = stills.find({source, second});
    if (found == stills.end()) {
        const auto picture = footage ? footage->still(source, second) : std::nullopt;
        if (!picture) return nullptr;
        found =
            stills.emplace(std::pair(source, second), LatelyUsed<QImage>{Painted::image(*picture), 0}).first;
    }
    found->second.used = turn;
    return &found->second.value;
}

void ListPicture::dropUnused() {
    const auto old = [this](const auto& kept) { return kept.used + keptTurns < turn; };
    if (texts.size() > maxTexts) texts.removeIf([&](const auto& entry) { return old(entry.value()); });
    if (labels.size() > maxTexts) labels.removeIf([&](const auto& entry) { return old(entry.value()); });
    if (stills.size() > maxStills)
        std::erase_if(stills, [&](const auto& entry) { return old(entry.second); });
    if (files.size() > maxStills) std::erase_if(files, [&](const auto& entry) { return old(entry.second); });
    if (symbols.size() > maxTexts) symbols.removeIf([&](const auto& entry) { return old(entry.value()); });
}

}
