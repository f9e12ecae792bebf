#pragma once

#include "app/editor/Background.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

class Editor;

/// A picture, movie or sound that is to come into the open video.
struct ArrivingFile {
    enum class ArrivalKind { overlay, sound, song };

    std::filesystem::path file;
    ArrivalKind kind = ArrivalKind::overlay;
    std::optional<double> time; ///< video seconds; the playhead without one
    std::string folder;         ///< of the library that it lies in

    bool operator==(const ArrivingFile&) const = default;
};

/// Brings files of the owner's into the open video: they are copied into the project on a thread, for one may
/// be large, and laid once they are there, in the order given. Main thread only.
class MediaArrivals : public QObject {
    Q_OBJECT

public:
    explicit MediaArrivals(Editor& editor);
    ~MediaArrivals() override;

    void take(std::vector<ArrivingFile> files);
    /// Waits until what is on its way has been laid.
    void finish() { copying.finish(); }

private:
    void lay(const ArrivingFile& file, const std::filesystem::path& kept);

    Editor& editor;
    Background copying;
};

}
