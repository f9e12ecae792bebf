#include "app/desktop/viewer/ViewerAids.h"

#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace murbo {
namespace {

constexpr int countEvery = 500; ///< ms, while it plays

/// For this session also where the settings can't be written.
void remember(const char* key, bool on) {
    try {
        SettingsStore::standard().set(key, on);
    } catch (const Problem&) {
        return;
    }
}

}

ViewerAids::ViewerAids(Playback& of)
    : player(of),
      areasShown(SettingsStore::standard().boolean("safeAreas").value_or(false)),
      droppedShown(SettingsStore::standard().boolean("droppedFrames").value_or(false)) {
    read();
    counting.setInterval(countEvery);
    connect(&counting, &QTimer::timeout, this, &ViewerAids::droppedChanged);
    connect(&player, &Playback::rateChanged, this, &ViewerAids::countWhilePlaying);
    countWhilePlaying();
}

void ViewerAids::read() {
    QFile file(":/murbo/viewer/safe-areas.json");
    if (!file.open(QIODevice::ReadOnly)) return;
    const auto json = QJsonDocument::fromJson(file.readAll()).object();
    words = json["note"].toString() + " " + json["dated"].toString() + ".";
    platforms = json["platforms"].toArray().toVariantList();
}

void ViewerAids::setSafeAreas(bool on) {
    if (on == areasShown) return;
    areasShown = on;
    remember("safeAreas", on);
    emit changed();
}

void ViewerAids::setDroppedFrames(bool on) {
    if (on == droppedShown) return;
    droppedShown = on;
    remember("droppedFrames", on);
    countWhilePlaying();
    emit changed();
}

/// No timer where nobody looks.
void ViewerAids::countWhilePlaying() {
    if (droppedShown && player.rate() != 0)
        counting.start();
    else
        counting.stop();
    emit droppedChanged();
}

QString ViewerAids::droppedWords() const {
    const auto [shown, dropped] = player.counts();
    return QString("%1 of %2 dropped").arg(dropped).arg(shown + dropped);
}

}
