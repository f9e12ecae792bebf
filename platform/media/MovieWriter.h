#pragma once

#include "platform/image/Bitmap.h"

#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace murbo {

/// What a movie is written with.
struct MovieSettings {
    int width = 0;                 ///< pixels, even
    int height = 0;                ///< pixels, even
    int rate = 30;                 ///< whole frames a second
    bool sound = true;             ///< AAC, 48 kHz stereo, 192 kbit/s
    std::string preset = "medium"; ///< x264's
    double quality = 18;           ///< x264's constant rate factor; lower is better
    int lookahead = 0;             ///< pictures that the encoder looks ahead; 0 is the preset's
    int threads = 0;               ///< of the encoder; 0 lets it choose
};

/// Writes an MPEG-4 movie: H.264 (BT.709, limited range, tagged so) and AAC, the index at the front. The file
/// is written beside its place and renamed when whole; a writer that goes without `finish` leaves nothing.
///
/// One thread at a time may use a writer. Pictures and sound may come in turns of up to some seconds.
class MovieWriter {
public:
    /// Throws Problem where the place can't be written or no encoder is there.
    static MovieWriter open(const std::filesystem::path& path, const MovieSettings& settings);

    MovieWriter(MovieWriter&&) noexcept;
    MovieWriter& operator=(MovieWriter&&) noexcept;
    ~MovieWriter();

    /// The next picture; it is kept until encoded, so its samples must not change any more. Throws Problem
    /// where it can't be written (a full disk).
    void picture(const Planes& planes);
    /// The next sound, interleaved stereo floats at 48 kHz. Throws Problem likewise.
    void sound(std::span<const float> samples);
    /// Ends the movie and puts it in its place, over what stands there. Throws Problem likewise.
    void finish();

private:
    struct Parts;
    explicit MovieWriter(std::unique_ptr<Parts> given);
    std::unique_ptr<Parts> parts;
};

}
