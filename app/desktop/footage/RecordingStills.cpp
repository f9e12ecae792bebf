#include "app/desktop/footage/RecordingStills.h"

#include "app/desktop/drawn/Painted.h"
#include "core/model/Source.h"
#include "core/render/footage/Filmstrip.h"

namespace murbo {
namespace {

constexpr auto spelling = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

}

RecordingStills::RecordingStills()
    : QQuickImageProvider(QQuickImageProvider::Image, ForceAsynchronousImageLoading) {}

RecordingStills::~RecordingStills() = default;

QString RecordingStills::address(const std::filesystem::path& file) {
    return "image://recording/" +
           QString::fromLatin1(QByteArray::fromStdString(file.string()).toBase64(spelling));
}

QImage RecordingStills::requestImage(const QString& id, QSize* size, const QSize&) {
    const auto bytes = QByteArray::fromBase64(id.section('/', 0, 0).toLatin1(), spelling);
    const std::filesystem::path wanted(bytes.toStdString());
    const std::lock_guard hold(lock);
    if (!strip || wanted != file) {
        file = wanted;
        strip = std::make_unique<Filmstrip>(Source{.path = file.string()});
    }
    const auto made = strip->make(std::max(id.section('/', 1, 1).toInt(), 0));
    QImage picture(1, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    if (made) picture = Painted::image(*made);
    if (size) *size = picture.size();
    return picture;
}

}
