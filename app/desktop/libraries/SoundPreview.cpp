#include "app/desktop/libraries/SoundPreview.h"

#include "app/editor/playback/PreviewVolume.h"

namespace murbo {
namespace {

constexpr double millisecondsASecond = 1000;

}

SoundPreview::SoundPreview(SoundPlayer::MakeOutput output, QObject* parent)
    : QObject(parent), player(std::move(output)) {
    ending.setSingleShot(true);
    const auto follow = [this] { player.setVolume(PreviewVolume::standard().volume()); };
    connect(&PreviewVolume::standard(), &PreviewVolume::changed, this, follow);
    follow();
    connect(&ending, &QTimer::timeout, this, &SoundPreview::stop);
}

void SoundPreview::play(const QString& path, double length) {
    if (length <= 0) return;
    player.stop();
    player.load({{path.toStdString(), {{0, length, 0}}, {}}}, length);
    player.start(0, 1);
    ending.start(static_cast<int>(length * millisecondsASecond));
    file = path;
    emit changed();
}

void SoundPreview::stop() {
    if (file.isEmpty()) return;
    player.stop();
    ending.stop();
    file.clear();
    emit changed();
}

}
