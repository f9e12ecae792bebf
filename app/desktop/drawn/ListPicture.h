#pragma once

#include "app/desktop/drawn/DrawList.h"
#include "app/desktop/drawn/MeasuredText.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <array>
#include <map>
#include <utility>

namespace murbo {

class FootagePictures;

/// A draw list painted as one picture. For lists of thousands: the software renderer compares every node with
/// all that lie over it, and takes far longer for that than all the painting does.
class ListPicture {
public:
    /// What it is painted on: its size in points, device pixels a point, and the colour beneath all.
    struct PictureGround {
        QSizeF size;
        double ratio = 1;
        QColor colour;
        bool operator==(const PictureGround&) const = default;
    };

    /// Paints a list. Stills and waves that are not at hand yet are left out. False where the picture is what
    /// it was before.
    bool paint(DrawList list, const PictureGround& ground, FootagePictures* pictures);
    const QImage& picture() const { return canvases[turn % canvases.size()]; }

private:
    template <class Value>
    struct LatelyUsed {
        Value value;
        std::size_t used = 0; ///< the turn
    };
    using LabelText = std::pair<QString, bool>;          ///< a text, bold or not
    using LabelLook = std::pair<QString, std::uint64_t>; ///< a text as it is cut off, its colour and weight

    bool draw(const DrawList::Patch& patch);
    bool draw(const DrawList::Label& label);
    bool draw(const DrawList::Still& still);
    bool draw(const DrawList::Wave& wave);
    bool draw(const DrawList::FilePicture& file);
    bool draw(const DrawList::Symbol& symbol);
    bool draw(const DrawList::Stripes& stripes);
    void fill(const QRectF& rect, const QImage& picture, const QRectF& part);
    const QImage* still(const UUID& source, int second);
    QRect onDevice(const QRectF& rect) const;
    void dropUnused();

    DrawList painted;
    PictureGround on;
    bool whole = false;
    std::array<QImage, 2> canvases; ///< one is shown while the other is painted
    std::size_t turn = 0;

    QPainter painter;
    FootagePictures* footage = nullptr;
    QHash<LabelText, LatelyUsed<MeasuredText>> texts;
    QHash<LabelLook, LatelyUsed<QImage>> labels;
    std::map<std::pair<UUID, int>, LatelyUsed<QImage>> stills;
    std::map<std::filesystem::path, LatelyUsed<QImage>> files;
    QHash<QString, LatelyUsed<QImage>> symbols;
};

}
