#include "platform/media/PictureHeader.h"

#include "platform/base/Descriptor.h"

#include <array>
#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

namespace murbo {

namespace {

using Kind = PictureHeader::Kind;

// A JPEG's size stands after its notes, profiles and thumbnails, 64 kB each.
constexpr int maxSegments = 2000;

/// Some bytes of a file, and numbers in them.
struct Bytes {
    std::array<std::uint8_t, 32> values{};
    std::size_t count = 0;

    Bytes(const Descriptor& file, std::int64_t at) {
        const auto got = ::pread(file, values.data(), values.size(), at);
        count = got > 0 ? static_cast<std::size_t>(got) : 0;
    }

    bool has(std::size_t at, std::string_view text) const {
        return at + text.size() <= count &&
               text == std::string_view(reinterpret_cast<const char*>(values.data()) + at, text.size());
    }
    std::uint32_t big(std::size_t at, int length) const {
        std::uint32_t number = 0;
        for (int byte = 0; byte < length; ++byte) number = number << 8 | values[at + byte];
        return number;
    }
    std::uint32_t little(std::size_t at, int length) const {
        std::uint32_t number = 0;
        for (int byte = length - 1; byte >= 0; --byte) number = number << 8 | values[at + byte];
        return number;
    }
};

// Starts of frame; three numbers among them mean other things.
bool holdsSize(std::uint32_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::optional<PictureHeader> jpeg(const Descriptor& file) {
    std::int64_t at = 2;
    for (int segment = 0; segment < maxSegments; ++segment) {
        const Bytes head(file, at);
        const std::uint32_t marker = head.values[1];
        if (head.count < 9 || head.values[0] != 0xFF || marker == 0xD9 || marker == 0xDA) return {};
        if (holdsSize(marker)) return PictureHeader{Kind::jpeg, head.big(7, 2), head.big(5, 2)};
        at += marker == 0xFF ? 1 : 2 + head.big(2, 2);
    }
    return {};
}

std::optional<PictureHeader> webp(const Bytes& head) {
    if (head.has(12, "VP8X"))
        return PictureHeader{Kind::webp, head.little(24, 3) + 1, head.little(27, 3) + 1};
    if (head.has(12, "VP8 "))
        return PictureHeader{Kind::webp, head.little(26, 2) & 0x3FFF, head.little(28, 2) & 0x3FFF};
    const std::uint32_t bits = head.little(21, 4);
    if (head.has(12, "VP8L"))
        return PictureHeader{Kind::webp, (bits & 0x3FFF) + 1, (bits >> 14 & 0x3FFF) + 1};
    return {};
}

// The oldest form has short numbers; a height below zero means rows from the top.
PictureHeader bmp(const Bytes& head) {
    if (head.little(14, 4) == 12) return {Kind::bmp, head.little(18, 2), head.little(20, 2)};
    const std::int64_t height = static_cast<std::int32_t>(head.little(22, 4));
    return {Kind::bmp, head.little(18, 4), std::abs(height)};
}

std::optional<PictureHeader> header(const Descriptor& file) {
    const Bytes head(file, 0);
    if (head.has(0, "\x89PNG\r\n\x1A\n")) return PictureHeader{Kind::png, head.big(16, 4), head.big(20, 4)};
    if (head.has(0, "\xFF\xD8\xFF")) return jpeg(file);
    if (head.has(0, "GIF8")) return PictureHeader{Kind::gif, head.little(6, 2), head.little(8, 2)};
    if (head.has(0, "RIFF") && head.has(8, "WEBP")) return webp(head);
    if (head.has(0, "BM")) return bmp(head);
    if (head.has(4, "ftypavif") || head.has(4, "ftypavis")) return PictureHeader{Kind::avif, 0, 0};
    return {};
}

}

std::optional<PictureHeader> PictureHeader::read(const std::filesystem::path& path) {
    // A pipe under the name of a file would otherwise wait for a writer for ever.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat facts {};
    if (file < 0 || ::fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    return header(file);
}

}
