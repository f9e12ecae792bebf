#pragma once

#include "platform/image/Bitmap.h"
#include "platform/media/FrameReader.h"

#include <deque>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

namespace murbo {

struct Source;

/// Thumbnails of one source, at most one a second, kept in memory and in the package.
///
/// Any thread may ask. Making one blocks while another of the same source is made.
class Filmstrip {
public:
    static constexpr int maxPixels = 320;       ///< a side
    static constexpr std::size_t maxKept = 600; ///< in memory

    /// Thumbnails are also kept under the package, where there is one.
    explicit Filmstrip(const Source& source, const std::optional<std::filesystem::path>& package = {});

    /// The thumbnail of that second if it is in memory; never waits.
    std::optional<Bitmap> still(int second) const;

    /// The thumbnail of that second, from memory, the package or the footage. Nothing where none can be had.
    std::optional<Bitmap> make(int second);

    /// How many seconds lie between thumbnails that are `tile` points wide: a power of two, so that zooming
    /// a little asks for the same ones.
    static int step(double tile, double pointsPerSecond);

private:
    std::optional<std::filesystem::path> place(int second) const;
    std::optional<Bitmap> stored(int second) const;
    std::optional<Bitmap> drawn(int second);
    void store(int second, const Bitmap& picture) const;
    void keep(int second, const Bitmap& picture);

    const std::filesystem::path file;
    const std::optional<std::filesystem::path> folder;

    mutable std::mutex lock; // guards `images` and `order`
    std::map<int, Bitmap> images;
    std::deque<int> order; // oldest first

    std::mutex reading; // guards the reader
    std::optional<FrameReader> reader;
    bool opened = false;
};

}
