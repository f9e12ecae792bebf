#include "app/desktop/footage/DroppedFiles.h"

#include <QFileInfo>

namespace murbo {

DroppedFiles DroppedFiles::sorted(const QStringList& paths) {
    static const QStringList pictureEndings{"png", "jpg", "jpeg", "webp", "gif", "bmp"};
    static const QStringList soundEndings{"mp3", "wav", "m4a",  "aac",  "flac",
                                          "ogg", "aif", "opus", "aiff", "caf"};
    DroppedFiles files;
    for (const auto& path : paths) {
        const QFileInfo file(path);
        const auto ending = file.suffix().toLower();
        if (!file.isDir() && pictureEndings.contains(ending))
            files.pictures.append(path);
        else if (!file.isDir() && soundEndings.contains(ending))
            files.sounds.append(path);
        else
            files.footage.append(path);
    }
    return files;
}

}
