#include "app/desktop/libraries/BookPictures.h"

#include "app/editor/Editor.h"
#include "core/model/VideoTime.h"
#include "core/render/footage/Filmstrip.h"

#include <cmath>

namespace murbo {
namespace {

/// The moment of the footage that is looked at: in the video, else in what is held, else anywhere.
BookScene sceneOf(const Editor& editor) {
    BookScene scene;
    const auto& project = editor.project();
    scene.project = project;
    scene.package = editor.package();
    if (const auto* video = editor.video()) {
        scene.aspect = video->aspect;
        if (const auto place = VideoTime::locate(editor.playback.time(), video->cuts)) {
            scene.source = video->cuts[place->cut].source;
            scene.at = place->at;
        }
    }
    if (!scene.source || !project.source(*scene.source)) {
        scene.source = editor.heldSource();
        scene.at = editor.source.time();
    }
    if (!scene.source && !project.sources.empty()) {
        scene.source = project.sources[0].id;
        scene.at = project.sources[0].length / 3;
    }
    if (scene.source && editor.missing().contains(*scene.source)) scene.source.reset();
    return scene;
}

}

BookPictures::BookPictures(Editor& session, QObject* parent) : QObject(parent), editor(session) {
    pool.setMaxThreadCount(1); // the viewers come first
}

BookPictures::~BookPictures() {
    pool.clear();
    pool.waitForDone();
}

void BookPictures::follow() {
    ++turn;
    pool.clear();
    kept.clear();
    order.clear();
    wished.clear();
    scene.reset();
    emit changed();
}

std::optional<Bitmap> BookPictures::picture(const Book& book, int step) {
    const Wish wish{book.id() + "@" + std::to_string(book.version()), step};
    if (const auto found = kept.find(wish); found != kept.end()) return found->second;
    if (!wished.insert(wish).second) return {};
    if (!scene) scene = std::make_shared<const BookScene>(sceneOf(editor));
    auto* strip = scene->source && !scene->picture ? editor.filmstrip(*scene->source) : nullptr;
    const auto draw = [this, wish, mine = turn, scene = scene, strip, book, step] {
        std::optional<Bitmap> drawn;
        try {
            auto own = *scene;
            if (strip) own.picture = strip->make(static_cast<int>(std::floor(own.at)));
            drawn = own.draw(book, static_cast<double>(step) / steps, height);
        } catch (const std::exception&) {
            drawn.reset(); // it has no picture; its name is there
        }
        QMetaObject::invokeMethod(
            this, [this, mine, wish, drawn] { finish(mine, wish, drawn); }, Qt::QueuedConnection);
    };
    pool.start(draw, ++priority);
    return {};
}

void BookPictures::finish(int when, const Wish& wish, std::optional<Bitmap> drawn) {
    if (when != turn) return;
    wished.erase(wish);
    if (kept.emplace(wish, std::move(drawn)).second) order.push_back(wish);
    while (order.size() > maxKept) {
        kept.erase(order.front());
        order.pop_front();
    }
    emit changed();
}

}
