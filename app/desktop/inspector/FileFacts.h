#pragma once

#include "platform/media/MediaFacts.h"

#include <QObject>
#include <QString>
#include <QThreadPool>
#include <filesystem>
#include <map>
#include <optional>

namespace murbo {

/// What media files are, each read once, on a worker. Main thread only.
class FileFacts : public QObject {
    Q_OBJECT

public:
    FileFacts();
    /// Waits for what is being read.
    ~FileFacts() override;

    /// Nothing while it is being read, `changed` comes then, and for what is no media file.
    std::optional<MediaFacts> of(const std::filesystem::path& file);
    /// In words: "1920 × 1080, 60 fps, stereo". Empty while nobody knows.
    QString words(const std::filesystem::path& file);

signals:
    void changed();

private:
    std::map<std::filesystem::path, std::optional<MediaFacts>> known;
    QThreadPool pool;
};

}
