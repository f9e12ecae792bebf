#include "app/desktop/services/MediaEndings.h"

#include <QFileInfo>
#include <QStringList>

namespace murbo::MediaEndings {
namespace {

bool endsWith(const QString& path, const QStringList& endings) {
    return endings.contains(QFileInfo(path).suffix().toLower());
}

}

bool isPicture(const QString& path) {
    return endsWith(path, {"png", "jpg", "jpeg", "webp", "gif", "bmp"});
}

bool isSound(const QString& path) {
    return endsWith(path, {"mp3", "wav", "m4a", "aac", "flac", "ogg", "aif", "opus", "aiff", "caf"});
}

bool isPlaybook(const QString& path) {
    return endsWith(path, {"mbplay"});
}

}
