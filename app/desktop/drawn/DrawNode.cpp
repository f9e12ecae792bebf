#include "app/desktop/drawn/DrawNode.h"

#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/drawn/IconPicture.h"
#include "app/desktop/drawn/Painted.h"
#include "core/intake/samples/Loudness.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <QSGTexture>

namespace murbo {
namespace {

constexpr std::size_t keptTextures = 1200;
constexpr std::int64_t keptTurns = 240; ///< lists for which an unused texture is kept

bool isImage(const DrawList::Item& item) {
    return !std::holds_alternative<DrawList::Patch>(item);
}

}

DrawNode::~DrawNode() {
    // The nodes go before the textures that they show.
    while (auto* node = firstChild()) {
        removeChildNode(node);
        delete node;
    }
}

bool DrawNode::show(const DrawList& list, QQuickWindow& on, FootagePictures* from) {
    window = &on;
    pictures = from;
    ++turn;
    bool missing = false;
    for (std::size_t at = 0; at < list.items.size(); ++at) {
        const auto& item = list.items[at];
        if (at < shown.size() && isImage(shown[at].item) != isImage(item))
            while (shown.size() > at) {
                removeChildNode(shown.back().node);
                delete shown.back().node;
                shown.pop_back();
            }
        const bool fresh = at == shown.size();
        if (fresh)
            shown.push_back(made(item));
        else if (shown[at].whole && shown[at].item == item)
            continue;
        shown[at].item = item;
        shown[at].whole = put(shown[at]);
        missing |= !shown[at].whole;
        // Only now: the software renderer looks at a node's texture as soon as the node is there.
        if (fresh) appendChildNode(shown[at].node);
    }
    while (shown.size() > list.items.size()) {
        removeChildNode(shown.back().node);
        delete shown.back().node;
        shown.pop_back();
    }
    dropUnused();
    return missing;
}

DrawNode::Shown DrawNode::made(const DrawList::Item& item) {
    if (isImage(item)) return {item, window->createImageNode(), false};
    return {item, window->createRectangleNode(), false};
}

/// Whether all that it shows was at hand.
bool DrawNode::put(Shown& one) {
    if (const auto* fill = std::get_if<DrawList::Patch>(&one.item)) {
        auto* node = static_cast<QSGRectangleNode*>(one.node);
        node->setRect(DrawList::onPixels(fill->rect, window->effectiveDevicePixelRatio()));
        node->setColor(fill->colour);
        return true;
    }
    if (const auto* text = std::get_if<DrawList::Label>(&one.item)) {
        auto* picture = label(*text);
        const auto size = QSizeF(picture->textureSize()) / window->effectiveDevicePixelRatio();
        const double top = text->rect.top() + std::round((text->rect.height() - size.height()) / 2);
        return putImage(one, {{std::round(text->rect.left()), top}, size}, picture, {});
    }
    if (const auto* loud = std::get_if<DrawList::Wave>(&one.item))
        return putImage(one, loud->rect, wave(*loud), {});
    if (const auto* sign = std::get_if<DrawList::Symbol>(&one.item))
        return putImage(one, sign->rect, symbol(*sign), {});
    if (const auto* striped = std::get_if<DrawList::Stripes>(&one.item)) {
        auto* picture = stripes(*striped);
        const QSizeF part(striped->rect.width() * window->effectiveDevicePixelRatio(),
                          picture->textureSize().height());
        return putImage(one, striped->rect, picture, {{}, part});
    }
    if (const auto* from = std::get_if<DrawList::FilePicture>(&one.item)) {
        auto* picture = filePicture(from->file);
        return putImage(
            one, from->rect, picture,
            picture ? Painted::filling(picture->textureSize(), from->rect.width(), from->rect.height())
                    : QRectF());
    }
    const auto& strip = std::get<DrawList::Still>(one.item);
    auto* picture = still(strip);
    if (!picture) return putImage(one, strip.rect, nullptr, {});
    auto part = Painted::filling(picture->textureSize(), strip.width, strip.rect.height());
    const double scale = part.width() / strip.width;
    part = {part.left() + strip.skip * scale, part.top(), strip.rect.width() * scale, part.height()};
    return putImage(one, strip.rect, picture, part);
}

bool DrawNode::putImage(Shown& one, const QRectF& rect, QSGTexture* given, const QRectF& part) {
    auto* node = static_cast<QSGImageNode*>(one.node);
    auto* picture = given ? given : texture("none", [] {
        QImage clear(1, 1, QImage::Format_ARGB32_Premultiplied);
        clear.fill(Qt::transparent);
        return clear;
    });
    node->setTexture(picture);
    node->setFiltering(QSGTexture::Linear);
    node->setRect(rect);
    node->setSourceRect(part.isEmpty() ? QRectF({}, QSizeF(picture->textureSize())) : part);
    return given;
}

QSGTexture* DrawNode::texture(const QString& key, const std::function<QImage()>& draw) {
    auto& kept = textures[key];
    if (!kept.texture) {
        const auto image = draw();
        kept.texture.reset(window->createTextureFromImage(image));
    }
    kept.used = turn;
    return kept.texture.get();
}

QSGTexture* DrawNode::label(const DrawList::Label& label) {
    const double ratio = window->effectiveDevicePixelRatio();
    const auto key = QString("l%1|%2|%3|%4|%5")
                         .arg(std::floor(label.rect.width()))
                         .arg(label.colour.rgba())
                         .arg(int(label.ellipsis) * 2 + int(label.bold))
                         .arg(ratio)
                         .arg(label.text);
    return texture(key, [&] { return Painted::label(label, ratio); });
}

QSGTexture* DrawNode::wave(const DrawList::Wave& wave) {
    const auto* loudness = !pictures           ? nullptr
                           : wave.file.empty() ? pictures->loudness(wave.source)
                                               : pictures->loudnessOf(wave.file);
    if (!loudness) return nullptr;
    const double ratio = window->effectiveDevicePixelRatio();
    const auto of = wave.file.empty() ? wave.source.text() : wave.file.string();
    const auto key = QString("w%1|%2|%3|%4|%5|%6|")
                         .arg(wave.from, 0, 'f', 3)
                         .arg(wave.to, 0, 'f', 3)
                         .arg(std::round(wave.rect.width()))
                         .arg(wave.rect.height())
                         .arg(wave.colour.rgba())
                         .arg(ratio) +
                     QString::fromStdString(of);
    return texture(key, [&] { return Painted::wave(wave, *loudness, ratio); });
}

QSGTexture* DrawNode::still(const DrawList::Still& still) {
    const auto key = QString("s%1|%2").arg(QString::fromStdString(still.source.text())).arg(still.second);
    if (const auto kept = textures.find(key); kept != textures.end()) {
        kept->second.used = turn;
        return kept->second.texture.get();
    }
    const auto picture = pictures ? pictures->still(still.source, still.second) : std::nullopt;
    if (!picture) return nullptr;
    return texture(key, [&] { return Painted::image(*picture); });
}

QSGTexture* DrawNode::symbol(const DrawList::Symbol& symbol) {
    const auto side = (symbol.rect.size() * window->effectiveDevicePixelRatio()).toSize();
    const auto colour = symbol.colour.name().mid(1);
    return texture(QString("i%1|%2|%3").arg(side.width()).arg(symbol.name, colour),
                   [&] { return IconPicture::of(symbol.name, colour, side); });
}

QSGTexture* DrawNode::stripes(const DrawList::Stripes& stripes) {
    const double ratio = window->effectiveDevicePixelRatio();
    const double height = stripes.rect.height();
    const auto key = QString("d%1|%2|%3").arg(height).arg(stripes.colour.rgba()).arg(ratio);
    return texture(key, [&] { return Painted::stripes(height, stripes.colour, ratio); });
}

QSGTexture* DrawNode::filePicture(const std::filesystem::path& file) {
    const auto key = "f" + QString::fromStdString(file.string());
    if (const auto kept = textures.find(key); kept != textures.end()) {
        kept->second.used = turn;
        return kept->second.texture.get();
    }
    const auto picture = pictures ? pictures->ofFile(file) : std::nullopt;
    if (!picture) return nullptr;
    return texture(key, [&] { return Painted::image(*picture); });
}

void DrawNode::dropUnused() {
    if (textures.size() <= keptTextures) return;
    std::erase_if(textures, [&](const auto& entry) {
        return entry.second.used < turn - keptTurns && entry.second.texture.use_count() == 1;
    });
}

}
