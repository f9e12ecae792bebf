#pragma once

#include "core/model/CaptionStyle.h"
#include "core/render/footage/Footage.h"
#include "platform/image/Image.h"
#include "platform/image/filters/ColourCube.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace murbo {

/// What playbooks show that is costly to make and used frame after frame: pictures out of files, open videos,
/// drawn letters, green-screen cubes, masks of subjects. All of it bounded. Any thread may ask; a lock guards
/// the look-ups, never the reading or drawing.
class PlaybookMedia {
public:
    PlaybookMedia();
    ~PlaybookMedia();
    PlaybookMedia(const PlaybookMedia&) = delete;

    /// A picture file; of a moving one its first picture. Nothing where it can't be read or is too large. A
    /// file that has changed is read again.
    std::optional<Image> image(const std::filesystem::path& file);

    /// A video file for whoever asks under that key: two layers can play one file at different times.
    std::shared_ptr<Footage> footage(const std::filesystem::path& file, const std::string& key);

    /// Letters in a caption style, `fonts` being the families to fall back on. In `finer` pixels (a whole
    /// number) to the one, or as many as there is room for: for letters that will be enlarged.
    std::optional<Image> text(const std::string& text, const CaptionStyle& style, const std::string& fonts,
                              double finer = 1);

    /// One emoji or letter in white, at a size in points.
    std::optional<Image> glyph(const std::string& glyph, double points);

    /// Takes a colour out, as before a green screen. Nothing for a grey.
    std::optional<Filters::ColourCube> cube(Colour key);

    /// The subject of a picture alone; the picture itself where none is found.
    Image cutout(const Image& image);

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

}
