#include "app/desktop/viewer/EdgePicture.h"

#include "app/editor/playback/PlayerItem.h"
#include "core/model/Project.h"

#include <exception>

namespace murbo {

EdgePicture::~EdgePicture() {
    opening.finish();
}

bool EdgePicture::ready() const {
    return edge && standing.source() == edge->source;
}

QString EdgePicture::source() const {
    return edge ? QString::fromStdString(edge->source.text()) : "";
}

void EdgePicture::show(const std::optional<TrimEdge>& given, const Project& project) {
    edge = given;
    if (edge && opened != edge->source) open(edge->source, project);
    if (ready()) standing.seek(edge->at);
    emit changed();
}

void EdgePicture::open(const UUID& id, const Project& project) {
    const auto* footage = project.source(id);
    if (!footage) return;
    opened = id;
    const auto item = std::make_shared<std::optional<PlayerItem>>();
    const auto read = [item, source = *footage] {
        try {
            *item = PlayerItem::footage(source);
        } catch (const std::exception&) {
            item->reset(); // its still stays in the place of a picture
        }
    };
    opening.start(read, [this, item, id] {
        if (opened != id || !*item) return;
        standing.load(std::move(**item), at());
        standing.setSource(id);
        if (ready()) standing.seek(at());
        emit changed();
    });
}

}
