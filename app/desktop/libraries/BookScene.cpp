#include "app/desktop/libraries/BookScene.h"

#include "core/model/Settings.h"
#include "core/render/PlanBox.h"
#include "core/render/Renderer.h"
#include "platform/image/draw/Bands.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr double restLength = 2; ///< seconds that a layout is looked at
constexpr Colour ground = {41, 48, 59, 255};

double lengthOf(const Book& book) {
    return book.playbook.kind == "layout" ? restLength : book.playbook.naturalLength();
}

Video dressed(const BookScene& scene, const Book& book) {
    Video video;
    video.aspect = scene.aspect;
    const double length = lengthOf(book);
    if (book.playbook.kind == "generator") {
        video.cuts.edit() = {Cut::generated(book.id(), book.version(), {}, length)};
        return video;
    }
    auto& cut = video.cuts.edit().emplace_back();
    cut.source = *scene.source;
    cut.start = scene.at;
    cut.end = scene.at + length;
    auto& look = video.look.emplace();
    if (book.playbook.kind == "layout") {
        Shot shot;
        shot.source = cut.source;
        shot.at = cut.start;
        shot.playbook = book.id();
        shot.version = book.version();
        look.shots.edit().push_back(shot);
    } else {
        Overlay overlay;
        overlay.playbook = book.id();
        overlay.version = book.version();
        overlay.source = cut.source;
        overlay.at = cut.start;
        overlay.length = length;
        look.overlays.edit().push_back(overlay);
    }
    return video;
}

/// The same scene with a plain source where there is no footage.
BookScene withGround(BookScene scene) {
    if (scene.source && scene.picture) return scene;
    Source source;
    source.length = restLength;
    scene.project.sources.edit().push_back(source);
    scene.source = source.id;
    scene.at = 0;
    scene.picture = Bitmap(320, 180);
    Bands::draw(Image::colour(ground), *scene.picture);
    return scene;
}

}

Bitmap BookScene::draw(const Book& book, double share, int height) const {
    const auto scene = withGround(*this);
    const auto video = dressed(scene, book);
    auto plan = Plan::video(video, scene.project, Settings::captionFonts(), scene.package);
    plan.cues.clear(); // the footage's captions are no part of the playbook
    PlanBox box(std::move(plan));
    const double time = std::clamp(share, 0.0, 1.0) * lengthOf(book);
    const auto footage = Image::bitmap(*scene.picture, true);
    const auto frame =
        Renderer::render(footage, scene.source, *box.plan(), time, box.captions(), box.media());
    const auto size = box.plan()->frame;
    const double scale = height / size.height;
    Bitmap target(std::max(static_cast<int>(std::lround(size.width * scale)), 1), height);
    Bands::draw(frame.transformed(Transform().scaled(scale, scale)), target);
    return target;
}

}
