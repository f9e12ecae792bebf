#pragma once

#include "app/desktop/drawn/DrawList.h"

#include <QSGNode>
#include <QString>
#include <map>
#include <memory>
#include <vector>

class QImage;
class QQuickWindow;
class QSGTexture;

namespace murbo {

class FootagePictures;

/// The nodes that draw a list. From one list to the next only what differs is touched, and textures are kept
/// as long as they are likely to be asked for again. Lives where the scene graph lives. It is a transform
/// node that moves nothing: below a plain one the software renderer loses place and clip of nodes that come
/// later.
class DrawNode : public QSGTransformNode {
public:
    ~DrawNode() override;

    /// Has the nodes show a list. Stills and waves that are not at hand yet are left out; the answer is
    /// whether there were any.
    bool show(const DrawList& list, QQuickWindow& window, FootagePictures* pictures);

private:
    struct Shown {
        DrawList::Item item;
        QSGNode* node = nullptr;
        bool whole = false; ///< it needs no second look
    };
    struct KeptTexture {
        std::shared_ptr<QSGTexture> texture;
        std::int64_t used = 0;
    };

    Shown made(const DrawList::Item& item);
    bool put(Shown& shown);
    bool putImage(Shown& shown, const QRectF& rect, QSGTexture* texture, const QRectF& part);
    QSGTexture* texture(const QString& key, const std::function<QImage()>& draw);
    QSGTexture* label(const DrawList::Label& label);
    QSGTexture* wave(const DrawList::Wave& wave);
    QSGTexture* still(const DrawList::Still& still);
    QSGTexture* symbol(const DrawList::Symbol& symbol);
    QSGTexture* stripes(const DrawList::Stripes& stripes);
    QSGTexture* filePicture(const std::filesystem::path& file);
    void dropUnused();

    std::vector<Shown> shown;
    std::map<QString, KeptTexture> textures;
    std::int64_t turn = 0;
    QQuickWindow* window = nullptr;
    FootagePictures* pictures = nullptr;
};

}
