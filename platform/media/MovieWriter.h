#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Planes.h"
#include "platform/media/MovieSettings.h"

#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace murbo {

/// Writes an MPEG-4 movie: H.264 (BT.709, limited range, tagged so) and AAC, the index at the front. The file
/// is written beside its place and renamed when whole; a writer destroyed without `finish` leaves nothing.
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
    struct Encoding;
    explicit MovieWriter(std::unique_ptr<Encoding> given);
    std::unique_ptr<Encoding> encoding;
};

}
