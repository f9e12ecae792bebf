#include "app/desktop/drawn/DrawnView.h"
#include "app/desktop/drawn/FootagePictures.h"
#include "core/intake/samples/Loudness.h"

#include <QImage>
#include <QQuickWindow>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

const UUID quiet = UUID::make(), loud = UUID::make();

/// A view of one thing in a window of its own, in nodes or as one picture.
class ShownItem : public DrawnView {
public:
    explicit ShownItem(bool asPicture) {
        window.resize(80, 24);
        window.setColor(Qt::black);
        setParentItem(window.contentItem());
        setSize({80, 24});
        setPictures(&pictures);
        if (asPicture) paintOn(Qt::black);
        window.show();
    }
    QImage of(const DrawList::Item& item) {
        list.items = {item};
        update();
        return window.grabWindow();
    }

protected:
    DrawList drawList() override { return list; }

private:
    QQuickWindow window;
    Loudness levels[2]{{{90, 90, 90, 240, 240}, 5}, {{240, 60, 60, 60, 60}, 5}};
    FootagePictures pictures{[](const UUID&) { return nullptr; },
                             [this](const UUID& source) { return &levels[source == loud]; }};
    DrawList list;
};

/// Things that differ from the first of their kind in one way each.
std::vector<std::vector<DrawList::Item>> kinds() {
    using Label = DrawList::Label;
    using Symbol = DrawList::Symbol;
    using Stripes = DrawList::Stripes;
    using Wave = DrawList::Wave;
    const QRectF place(2, 2, 40, 20);
    return {{Label{place, "some longer words", Qt::white}, Label{place, "other longer words", Qt::white},
             Label{place, "some longer words", Qt::red}, Label{place, "some longer words", Qt::white, false},
             Label{place, "some longer words", Qt::white, true, true},
             Label{{2, 2, 70, 20}, "some longer words", Qt::white},
             Label{{9, 2, 40, 20}, "some longer words", Qt::white}},
            {Symbol{{2, 2, 16, 16}, "user-round", Qt::white}, Symbol{{2, 2, 16, 16}, "rows-2", Qt::white},
             Symbol{{2, 2, 16, 16}, "user-round", Qt::red}, Symbol{{2, 2, 12, 12}, "user-round", Qt::white}},
            {Stripes{place, Qt::white}, Stripes{place, Qt::red}, Stripes{{2, 2, 40, 13}, Qt::white},
             Stripes{{2, 2, 27, 20}, Qt::white}},
            {Wave{place, quiet, 0, 1, Qt::white}, Wave{place, loud, 0, 1, Qt::white},
             Wave{place, quiet, 0.2, 1, Qt::white}, Wave{place, quiet, 0, 0.8, Qt::white},
             Wave{place, quiet, 0, 1, Qt::red}, Wave{{2, 2, 30, 20}, quiet, 0, 1, Qt::white},
             Wave{{2, 2, 40, 12}, quiet, 0, 1, Qt::white}},
            {DrawList::Patch{place, Qt::white}, DrawList::Patch{place, Qt::red},
             DrawList::Patch{{2, 2, 41, 20}, Qt::white}}};
}

}

TEST(DrawnView, whatWasDrawnBeforeIsNotTakenForWhatLooksOtherwise) {
    for (const bool asPicture : {false, true})
        for (const auto& kind : kinds()) {
            ShownItem kept(asPicture);
            const auto first = kept.of(kind[0]);
            for (std::size_t at = 1; at < kind.size(); ++at) {
                const auto other = kept.of(kind[at]);
                EXPECT_EQ(other, ShownItem(asPicture).of(kind[at])) << kind[0].index() << " " << at;
                EXPECT_NE(other, first) << kind[0].index() << " " << at;
                EXPECT_EQ(kept.of(kind[0]), first) << kind[0].index() << " " << at;
            }
            EXPECT_EQ(first, ShownItem(!asPicture).of(kind[0])) << "in nodes as in one picture";
        }
}
