#pragma once

#include "core/model/Project.h"
#include "core/playbooks/Book.h"
#include "platform/image/Bitmap.h"

#include <filesystem>
#include <optional>

namespace murbo {

/// The footage that playbooks are shown over: one moment of a source, in a shape of frame. A value for any
/// thread.
struct BookScene {
    Project project; ///< with the source and its framing
    Video::Aspect aspect = Video::Aspect::vertical;
    std::optional<UUID> source; ///< none shows playbooks over a plain ground
    double at = 0;              ///< seconds on the source
    std::optional<Bitmap> picture;
    std::optional<std::filesystem::path> package;

    /// A playbook over the footage, at a share of its own length, `height` pixels high.
    Bitmap draw(const Book& book, double share, int height) const;
};

}
