#pragma once

#include <QQuickImageProvider>
#include <filesystem>
#include <memory>
#include <mutex>

namespace murbo {

class Filmstrip;

/// Stills of a file that is not in the project yet, by its path and a second of it. Made on the engine's
/// worker; what can't be read has a clear one of one pixel.
class RecordingStills : public QQuickImageProvider {
public:
    RecordingStills();
    ~RecordingStills() override;

    /// The address of a file's stills, to be followed by "/" and a second.
    static QString address(const std::filesystem::path& file);

    QImage requestImage(const QString& id, QSize* size, const QSize& wanted) override;

private:
    std::mutex lock;
    std::filesystem::path file; ///< whose strip is kept: one is looked at at a time
    std::unique_ptr<Filmstrip> strip;
};

}
