#include "app/desktop/documents/ProjectCards.h"

#include "app/desktop/drawn/Painted.h"
#include "core/intake/SourceFinder.h"
#include "core/model/Settings.h"
#include "core/model/package/ProjectPackage.h"
#include "core/render/Stills.h"
#include "platform/image/draw/Bands.h"

#include <QFileInfo>
#include <cmath>

namespace murbo {
namespace {

constexpr double standardSide = 160; ///< pixels

const Video* lastWithCuts(const Project& project) {
    const auto& videos = *project.videos;
    for (auto video = videos.rbegin(); video != videos.rend(); ++video)
        if (!video->cuts.empty()) return &*video;
    return nullptr;
}

QImage drawn(const std::filesystem::path& package, double side) {
    const auto project = ProjectPackage::read(package);
    const auto* video = lastWithCuts(project);
    if (!video) return {};
    PlanBox box(Plan::video(*video, project, Settings::captionFonts(), package));
    const auto frame = Stills::frame({*video, project, SourceFinder::find(project)}, 0, box);
    const auto extent = frame.extent();
    if (extent.empty() || extent.isEverything()) return {};
    const double scale = side / std::max(extent.width, extent.height);
    Bitmap target(static_cast<int>(std::ceil(extent.width * scale)),
                  static_cast<int>(std::ceil(extent.height * scale)));
    Bands::draw(frame.transformed(
                    Transform().translated(-extent.x, -extent.y).then(Transform().scaled(scale, scale))),
                target);
    return Painted::image(target);
}

}

ProjectCards::ProjectCards()
    : QQuickImageProvider(QQuickImageProvider::Image, ForceAsynchronousImageLoading) {}

QString ProjectCards::address(const QString& package) {
    const QFileInfo file(package + "/project.json");
    if (!file.exists()) return "";
    const auto id = package.toUtf8().toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    return "image://project/" + QString::fromLatin1(id) + "/" +
           QString::number(file.lastModified().toMSecsSinceEpoch());
}

QImage ProjectCards::requestImage(const QString& id, QSize* size, const QSize& wanted) {
    const auto path = QByteArray::fromBase64(id.section('/', 0, 0).toLatin1(), QByteArray::Base64UrlEncoding);
    QImage picture;
    try {
        const auto side = wanted.isEmpty() ? standardSide : std::max(wanted.width(), wanted.height());
        picture = drawn(path.toStdString(), side);
    } catch (const std::exception&) {
        picture = {}; // opening it says why
    }
    if (picture.isNull()) { // one that nobody sees: none at all would be a fault of the view's
        picture = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
    }
    if (size) *size = picture.size();
    return picture;
}

}
