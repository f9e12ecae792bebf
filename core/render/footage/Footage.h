#pragma once

#include "platform/image/Image.h"
#include "platform/media/FrameReader.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

namespace murbo {

/// Pictures out of one file for those who draw it: mostly forward in small steps, at times a jump. Going
/// forward decodes on, as far as FrameReader::reaches; a jump takes a single picture and keeps it, for it is
/// likely to be asked for again.
///
/// Any thread may ask; one is served at a time.
class Footage {
public:
    /// `maxStillBytes` is what the kept pictures may take.
    explicit Footage(std::filesystem::path file, std::int64_t maxStillBytes = std::int64_t{256} << 20);

    /// The picture that is on at `time` seconds, upright; after the end the last one. Nothing where the file
    /// has no picture to be read.
    std::optional<Image> frame(double time);

    /// Seconds; 0 where it can't be read.
    double length();

    /// Pixels of a picture; 0 where it can't be read.
    std::int64_t area();

private:
    struct KeptStill {
        Image image;
        double from = 0;  // it came on then …
        double until = 0; // … and was still on
        std::int64_t bytes = 0;

        bool isOn(double time) const { return from <= time && time <= until; }
    };

    bool open();
    bool isNear(double time) const;
    std::optional<Image> playing(double time);
    std::optional<Image> still(double time);
    void keep(std::int64_t key, KeptStill still);

    const std::filesystem::path file;
    const std::int64_t maxStillBytes;
    std::mutex lock; // guards all below
    bool opened = false;
    double seconds = 0;
    std::int64_t pixels = 0;
    std::optional<FrameReader> single; // for jumps
    std::optional<FrameReader> forward;
    std::optional<double> asked; // last
    std::map<std::int64_t, KeptStill> stills;
    std::int64_t stillBytes = 0;
};

}
