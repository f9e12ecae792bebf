#include "app/desktop/footage/DroppedFiles.h"

#include "app/desktop/services/MediaEndings.h"

#include <QFileInfo>

namespace murbo {

DroppedFiles DroppedFiles::sorted(const QStringList& paths) {
    DroppedFiles files;
    for (const auto& path : paths) {
        const bool folder = QFileInfo(path).isDir();
        if (MediaEndings::isPlaybook(path))
            files.playbooks.append(path);
        else if (!folder && MediaEndings::isPicture(path))
            files.pictures.append(path);
        else if (!folder && MediaEndings::isSound(path))
            files.sounds.append(path);
        else
            files.footage.append(path);
    }
    return files;
}

}
