#pragma once

#include "platform/media/PictureHeader.h"

#include <string>
#include <string_view>

namespace murbo {

/// What of a picture file a decoder is given, and what the file says beside its picture. For PictureFile.
struct PictureBytes {
    std::string bytes;   ///< with only one picture in them, and nothing that unpacks to any size; none where
                         ///< decoding would go on without end
    int orientation = 1; ///< as Exif counts, 1 to 8; 1 is upright

    static PictureBytes of(PictureHeader::Kind kind, std::string file);

    /// The orientation that an Exif block gives (CIPA DC-008, 4.6.5); 1 where it gives none.
    static int orientationIn(std::string_view exif);
};

}
