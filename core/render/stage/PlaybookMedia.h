#pragma once

#include "core/model/CaptionStyle.h"
#include "platform/image/Filter.h"
#include "platform/image/Image.h"
#include "platform/image/filters/ColourCube.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace murbo {

class Footage;

/// What playbooks show that is costly to make and used frame after frame: pictures out of files, open videos,
/// drawn letters, green-screen cubes, masks of subjects. All of it bounded. Any thread may ask; a lock guards
/// the look-ups, never the reading or drawing.
class PlaybookMedia {
public:
    PlaybookMedia();
    ~PlaybookMedia();
    PlaybookMedia(const PlaybookMedia&) = delete;

    /// Pixels that are kept of a picture file: what the largest usual frame has. A photo of twelve million
    /// loses a tenth of its sharpness there.
    static constexpr double maxPixels = 3840.0 * 2160;

    /// A picture file in at most that many pixels; of a moving one its first picture. Nothing where it can't
    /// be read or is too large. A file that has changed is read again; one that has several names is read
    /// once.
    std::optional<Image> image(const std::filesystem::path& file, double pixels = maxPixels);

    /// A video file for whoever asks under that key: two layers can play one file at different times.
    std::shared_ptr<Footage> footage(const std::filesystem::path& file, const std::string& key);

    /// Letters in a caption style, `fonts` being the families to fall back on, in lines of at most `width`
    /// pixels. In `finer` pixels (a whole number) to the one, or as many as there is room for: for letters
    /// that will be enlarged.
    std::optional<Image> text(const std::string& text, const CaptionStyle& style, const std::string& fonts,
                              double finer, double width);

    /// One emoji or letter in white, at a size in points.
    std::optional<Image> glyph(const std::string& glyph, double points);

    /// Takes a colour out, as before a green screen. Nothing for a grey.
    std::optional<Filters::ColourCube> cube(Colour key);

    /// The subject of a picture alone; the picture itself where none is found.
    Image cutout(const Image& image);

private:
    struct Caches;
    std::unique_ptr<Caches> caches;
};

}
