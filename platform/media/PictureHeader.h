#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace murbo {

/// What a picture file says of itself at its beginning. Costs the same however large the picture is.
struct PictureHeader {
    enum class Kind : std::uint8_t { png, jpeg, gif, webp, bmp, avif };

    Kind kind = Kind::png;
    std::int64_t width = 0; ///< of the stored picture; 0 where the header leaves it to the picture's own data
    std::int64_t height = 0;

    /// Nothing where the path is no regular file, or none of these kinds.
    static std::optional<PictureHeader> read(const std::filesystem::path& path);
};

}
