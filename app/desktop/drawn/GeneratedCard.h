#pragma once

#include "core/model/Video.h"
#include "platform/image/Bitmap.h"

#include <filesystem>
#include <optional>

namespace murbo {

/// A cut that a playbook draws, as a picture of its middle. A value for any thread.
struct GeneratedCard {
    Cut cut;
    Video::Aspect aspect = Video::Aspect::vertical;
    std::optional<std::filesystem::path> package; ///< with the playbook that the cut keeps to

    /// A number for its picture, below 0: cuts that look alike have the same one.
    static int number(const Cut& cut, Video::Aspect aspect);
    /// The picture, `width` pixels wide. Throws where it can't be drawn.
    Bitmap draw(int width) const;
};

}
