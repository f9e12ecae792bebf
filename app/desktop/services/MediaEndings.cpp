#include "app/desktop/services/MediaEndings.h"

#include <QFileInfo>

namespace murbo::MediaEndings {
namespace {

bool endsWith(const QString& path, const QStringList& endings) {
    return endings.contains(QFileInfo(path).suffix().toLower());
}

}

QStringList pictures() {
    return {"png", "jpg", "jpeg", "webp", "gif", "bmp"};
}

QStringList sounds() {
    return {"mp3", "wav", "m4a", "aac", "flac", "ogg", "aif", "opus", "aiff", "caf"};
}

QStringList markers() {
    return {"csv", "tsv", "txt"};
}

bool isPicture(const QString& path) {
    return endsWith(path, pictures());
}

bool isSound(const QString& path) {
    return endsWith(path, sounds());
}

bool isMarkers(const QString& path) {
    return endsWith(path, markers());
}

bool isPlaybook(const QString& path) {
    return endsWith(path, {"mbplay"});
}

}
