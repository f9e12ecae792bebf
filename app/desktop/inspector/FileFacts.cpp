#include "app/desktop/inspector/FileFacts.h"

#include "platform/media/MediaFile.h"

#include <QStringList>
#include <cmath>
#include <exception>

namespace murbo {
namespace {

std::optional<MediaFacts> read(const std::filesystem::path& file) try {
    return MediaFile::facts(file);
} catch (const std::exception&) {
    return {};
}

QString rate(double rate) {
    return QString::number(rate, 'f', std::abs(rate - std::round(rate)) < 0.005 ? 0 : 2) + " fps";
}

void addPicture(QStringList& words, const MediaFacts::Picture& picture) {
    words.append(QString("%1 × %2").arg(picture.size.width).arg(picture.size.height));
    if (picture.nominalRate > 0) words.append(rate(picture.nominalRate));
    if (picture.variableRate) words.append("variable rate");
    if (picture.interlaced) words.append("interlaced");
    if (picture.highDynamicRange) words.append("HDR");
}

void addSound(QStringList& words, const MediaFacts::Sound& sound) {
    if (sound.tracks > 1) words.append(QString("%1 sound tracks").arg(sound.tracks));
    words.append(sound.channels == 1   ? "mono"
                 : sound.channels == 2 ? "stereo"
                                       : QString("%1 channels").arg(sound.channels));
}

}

FileFacts::FileFacts() {
    pool.setMaxThreadCount(1);
}

FileFacts::~FileFacts() {
    pool.clear();
    pool.waitForDone();
}

std::optional<MediaFacts> FileFacts::of(const std::filesystem::path& file) {
    const auto [found, fresh] = known.try_emplace(file);
    if (fresh)
        pool.start([this, file] {
            auto facts = read(file);
            QMetaObject::invokeMethod(
                this,
                [this, file, facts = std::move(facts)] {
                    known[file] = facts;
                    emit changed();
                },
                Qt::QueuedConnection);
        });
    return found->second;
}

QString FileFacts::words(const std::filesystem::path& file) {
    const auto facts = of(file);
    if (!facts) return "";
    QStringList words;
    if (facts->picture) addPicture(words, *facts->picture);
    if (facts->sound)
        addSound(words, *facts->sound);
    else
        words.append("no sound");
    return words.join(", ");
}

}
