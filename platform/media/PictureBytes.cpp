#include "platform/media/PictureBytes.h"

#include <algorithm>
#include <cstring>

namespace murbo {

namespace {

using Kind = PictureHeader::Kind;

// Each scan of a progressive JPEG goes over the whole picture; honest ones have a dozen.
constexpr int maxScans = 64;

std::uint32_t big(std::string_view bytes, std::size_t at, std::size_t length) {
    std::uint32_t number = 0;
    for (std::size_t byte = at; byte < at + length && byte < bytes.size(); ++byte)
        number = number << 8 | static_cast<std::uint8_t>(bytes[byte]);
    return number;
}

std::uint32_t little(std::string_view bytes, std::size_t at, std::size_t length) {
    std::uint32_t number = 0;
    for (std::size_t byte = at + length; byte-- > at;)
        number = number << 8 | (byte < bytes.size() ? static_cast<std::uint8_t>(bytes[byte]) : 0);
    return number;
}

std::string inLittle(std::size_t number, int length) {
    std::string bytes;
    for (int byte = 0; byte < length; ++byte) bytes += static_cast<char>(number >> (8 * byte));
    return bytes;
}

// ------------------------------------------------------------------- JPEG ----

/// Where the marker after the data of a scan stands.
std::size_t endOfScan(std::string_view file, std::size_t at) {
    while (at + 1 < file.size()) {
        at = file.find('\xFF', at);
        if (at == file.npos || at + 1 >= file.size()) return file.size();
        const auto next = static_cast<std::uint8_t>(file[at + 1]);
        const bool inside = next == 0 || (next >= 0xD0 && next <= 0xD7);
        if (!inside && next != 0xFF) return at;
        at += inside ? 2 : 1;
    }
    return file.size();
}

/// The number of scans; and the orientation, where the file gives one.
int lookThroughJpeg(std::string_view file, int& orientation) {
    int scans = 0;
    for (std::size_t at = 2; at + 4 <= file.size() && file[at] == '\xFF';) {
        const auto marker = static_cast<std::uint8_t>(file[at + 1]);
        if (marker == 0xD9) break;
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        const std::size_t length = big(file, at + 2, 2);
        const std::string_view inside = file.substr(at + 4, std::max<std::size_t>(length, 2) - 2);
        if (marker == 0xE1 && inside.starts_with(std::string_view("Exif\0\0", 6)))
            orientation = PictureBytes::orientationIn(inside.substr(6));
        at += 2 + length;
        if (marker != 0xDA) continue;
        if (++scans > maxScans) break;
        at = endOfScan(file, at);
    }
    return scans;
}

PictureBytes jpeg(std::string file) {
    PictureBytes picture;
    if (lookThroughJpeg(file, picture.orientation) <= maxScans) picture.bytes = std::move(file);
    return picture;
}

// -------------------------------------------------------------------- PNG ----

bool makesThePicture(std::string_view chunk) {
    return chunk == "IHDR" || chunk == "PLTE" || chunk == "tRNS" || chunk == "IDAT" || chunk == "IEND";
}

// Packed notes and profiles could unpack to any size; the other pictures of a moving one are not wanted.
PictureBytes png(std::string file) {
    PictureBytes picture;
    std::size_t kept = 8;
    for (std::size_t at = 8; at + 8 <= file.size();) {
        const std::size_t length =
            std::min<std::size_t>(std::size_t{big(file, at, 4)} + 12, file.size() - at);
        const std::string_view chunk = std::string_view(file).substr(at + 4, 4);
        if (chunk == "eXIf")
            picture.orientation = PictureBytes::orientationIn(std::string_view(file).substr(at + 8, length));
        if (makesThePicture(chunk)) {
            std::memmove(file.data() + kept, file.data() + at, length);
            kept += length;
        }
        at += length;
    }
    file.resize(std::min(kept, file.size()));
    picture.bytes = std::move(file);
    return picture;
}

// ------------------------------------------------------------------- WebP ----

std::string riff(std::string_view chunks) {
    return "RIFF" + inLittle(chunks.size() + 4, 4) + "WEBP" + std::string(chunks);
}

/// A file with the picture of one frame of a moving one: its chunks, under a header of their own.
std::string still(std::string_view frame) {
    const std::string_view chunks = frame.substr(std::min<std::size_t>(16, frame.size()));
    const char alpha = chunks.starts_with("ALPH") || chunks.starts_with("VP8L") ? 0x10 : 0;
    const std::string sides = inLittle(little(frame, 6, 3), 3) + inLittle(little(frame, 9, 3), 3);
    return riff("VP8X" + inLittle(10, 4) + alpha + inLittle(0, 3) + sides + std::string(chunks));
}

PictureBytes webp(std::string file) {
    PictureBytes picture;
    const std::string_view whole = file;
    std::string first;
    for (std::size_t at = 12; at + 8 <= whole.size();) {
        const std::size_t length = little(whole, at + 4, 4);
        const std::string_view chunk = whole.substr(at, 4);
        const std::string_view inside = whole.substr(at + 8, length);
        if (chunk == "EXIF") picture.orientation = PictureBytes::orientationIn(inside);
        if (chunk == "ANMF" && first.empty()) first = still(inside);
        at += 8 + length + length % 2;
    }
    picture.bytes = first.empty() ? std::move(file) : std::move(first);
    return picture;
}

}

int PictureBytes::orientationIn(std::string_view exif) {
    if (exif.starts_with(std::string_view("Exif\0\0", 6))) exif.remove_prefix(6);
    const bool turned = exif.starts_with("MM");
    if (!turned && !exif.starts_with("II")) return 1;
    const auto number = turned ? big : little;
    constexpr std::size_t maxEntries = 1000;
    const std::size_t list = number(exif, 4, 4);
    const std::size_t entries = std::min<std::size_t>(number(exif, list, 2), maxEntries);
    for (std::size_t entry = 0; entry < entries; ++entry) {
        const std::size_t at = list + 2 + entry * 12;
        if (number(exif, at, 2) != 0x0112) continue;
        const auto told = static_cast<int>(number(exif, at + 8, 2));
        return told >= 1 && told <= 8 ? told : 1;
    }
    return 1;
}

PictureBytes PictureBytes::of(Kind kind, std::string file) {
    switch (kind) {
        case Kind::jpeg:
            return jpeg(std::move(file));
        case Kind::png:
            return png(std::move(file));
        case Kind::webp:
            return webp(std::move(file));
        default:
            return {std::move(file), 1};
    }
}

}
