#include "app/desktop/viewer/FramingResult.h"

#include "app/desktop/drawn/Painted.h"
#include "app/desktop/viewer/FramingEdit.h"
#include "app/desktop/viewer/FramingView.h"
#include "app/editor/commands/LookCommands.h"
#include "core/render/plan/Crop.h"
#include "core/render/plan/Plan.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>
#include <algorithm>

namespace murbo {
namespace {

constexpr double grab = 10; ///< points round the line of the split

/// The panels, one below the other, all out of one texture.
class PanelsNode : public QSGTransformNode {
public:
    ~PanelsNode() override {
        while (auto* node = firstChild()) { // before the texture that they show
            removeChildNode(node);
            delete node;
        }
    }

    void show(QQuickWindow& window, QSGTexture* picture, const std::vector<Panel>& panels, double scale) {
        while (auto* node = firstChild()) {
            removeChildNode(node);
            delete node;
        }
        texture.reset(picture);
        for (const auto& [source, frame] : panels) {
            auto* node = window.createImageNode();
            node->setTexture(picture);
            node->setFiltering(QSGTexture::Linear);
            node->setSourceRect({source.x, source.y, source.width, source.height});
            node->setRect({frame.x * scale, frame.y * scale, frame.width * scale, frame.height * scale});
            appendChildNode(node);
        }
    }

private:
    std::unique_ptr<QSGTexture> texture;
};

Size frameOf(const Editor& editor) {
    const auto size = editor.video() ? Plan::frameSize(editor.video()->aspect) : Size{1080, 1920};
    return size.height > size.width ? size : Size{1080, 1920};
}

}

FramingResult::FramingResult(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setAcceptedMouseButtons(Qt::LeftButton);
    connect(this, &FramingResult::layoutChanged, this, &QQuickItem::update);
    connect(this, &FramingResult::splitChanged, this, &QQuickItem::update);
}

void FramingResult::setEditor(Editor* given) {
    if (given == session) return;
    if (session) {
        session->disconnect(this);
        session->source.disconnect(this);
    }
    session = given;
    if (session) {
        connect(session, &Editor::projectChanged, this, &FramingResult::splitChanged);
        connect(&session->source, &Playback::sourceChanged, this, &FramingResult::splitChanged);
    }
    emit editorChanged();
}

void FramingResult::setFrame(FrameView* given) {
    if (given == shown) return;
    if (shown) shown->disconnect(this);
    shown = given;
    if (shown) connect(shown, &FrameView::frameShown, this, &QQuickItem::update);
    emit editorChanged();
    update();
}

double FramingResult::split() const {
    return session ? FramingView::framingOf(*session).split : Framing().split;
}

QSGNode* FramingResult::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    const auto picture = shown && session ? shown->last() : Bitmap();
    if (picture.empty() || width() <= 0) {
        delete old;
        return nullptr;
    }
    auto* node = old ? static_cast<PanelsNode*>(old) : new PanelsNode;
    Shot shot;
    shot.layout = static_cast<Shot::Layout>(std::clamp(layout, 0, 2));
    const auto frame = frameOf(*session);
    const auto panels =
        Crop::panels(shot, 1, FramingView::framingOf(*session),
                     {static_cast<double>(picture.width()), static_cast<double>(picture.height())}, frame);
    auto* texture = window()->createTextureFromImage(Painted::image(picture), QQuickWindow::TextureIsOpaque);
    node->show(*window(), texture, panels, width() / frame.width);
    return node;
}

void FramingResult::mousePressEvent(QMouseEvent* event) {
    if (!session || !session->source.source() || layout != 0 ||
        std::abs(event->position().y() - split() * height()) > grab) {
        event->ignore();
        return;
    }
    start = FramingView::framingOf(*session);
    pressed = event->position().y();
    dragging = true;
}

void FramingResult::mouseMoveEvent(QMouseEvent* event) {
    const auto source = session ? session->source.source() : std::nullopt;
    if (!dragging || !source) return;
    const QPointF by(0, (event->position().y() - pressed) / std::max(height(), 1.0));
    LookCommands::dragFraming(*session, *source, [&](Framing& framing) {
        framing =
            FramingEdit::pulled(start, {FramingEdit::FramingPart::split, BoxHandles::BoxHandle::body}, by);
    });
}

void FramingResult::mouseReleaseEvent(QMouseEvent*) {
    if (std::exchange(dragging, false) && session) session->closeDrag(FramingView::stepName);
}

void FramingResult::mouseUngrabEvent() {
    cancelDrag();
}

bool FramingResult::cancelDrag() {
    if (!std::exchange(dragging, false) || !session) return false;
    session->cancelDrag();
    return true;
}

}
