#include "core/render/stage/PlaybookMedia.h"

#include "core/render/captions/CaptionPicture.h"
#include "core/render/stage/Budget.h"
#include "core/render/stage/ChromaKey.h"
#include "core/render/stage/Cutout.h"
#include "core/render/stage/Glyph.h"
#include "core/render/stage/Ink.h"
#include "core/render/stage/MediaCache.h"
#include "platform/base/Problem.h"
#include "platform/media/PictureFile.h"

#include <cmath>
#include <tuple>

#include <fmt/format.h>
#include <sys/stat.h>

namespace murbo {

namespace {

using Pictures = MediaCache<std::string, std::optional<Image>>;
using Letters = MediaCache<CaptionPicture::Request, std::optional<Image>>;
using Videos = MediaCache<std::string, std::shared_ptr<Footage>>;
using Cubes = MediaCache<std::uint32_t, std::optional<Filters::ColourCube>>;

constexpr std::size_t megabyte = std::size_t{1} << 20;
constexpr Pictures::Bounds pictureBounds{1000, 384 * megabyte};
constexpr Letters::Bounds letterBounds{300, 192 * megabyte};
constexpr Pictures::Bounds glyphBounds{300, 64 * megabyte};
constexpr Cubes::Bounds cubeBounds{16};
// Each holds decoders and the pictures in them. As many stay open as one frame may show, or playing them
// would be opening them.
constexpr auto mostVideos = std::size_t(Stage::Budget().videos);
constexpr Videos::Bounds videoBounds{mostVideos, mostVideos* Stage::Budget::usualVideo};
constexpr auto mostStillBytes = std::int64_t(128 * megabyte);

// What the largest usual frame has: a photo of twelve million pixels loses a tenth of its sharpness there.
constexpr double mostKept = 3840.0 * 2160;
// Longer texts are refused when they are drawn; there is no need to keep them until then.
constexpr std::size_t longestText = 6000;
constexpr double widthOfLetters = 928.8; // of a frame 1080 pixels wide
// Of one text: many of them stay together, and enlarged letters gain nothing from more.
constexpr double mostOfLetters = 8.0 * megabyte;

/// What tells a file from the one that stood there before. Nothing where there is no regular file. The time
/// at which its inode changed tells, too, that it may be read now.
std::optional<std::string> stamp(const std::filesystem::path& file) {
    struct stat facts {};
    if (stat(file.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    const auto& [written, changed] = std::tie(facts.st_mtim, facts.st_ctim);
    return fmt::format("{}|{}.{}|{}.{}|{}", facts.st_size, written.tv_sec, written.tv_nsec, changed.tv_sec,
                       changed.tv_nsec, file.native());
}

std::size_t bytesOf(const Bitmap& bitmap) {
    return std::size_t(bitmap.stride()) * std::size_t(bitmap.height());
}

bool isOpaque(const Bitmap& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y) {
        std::uint8_t least = 255;
        for (int x = 0; x < bitmap.width(); ++x) least &= bitmap.row(y)[x * 4 + 3];
        if (least != 255) return false;
    }
    return true;
}

Pictures::Made read(const std::filesystem::path& file) {
    try {
        Bitmap bitmap = PictureFile::read(file, mostKept);
        const std::size_t bytes = bytesOf(bitmap);
        const bool opaque = isOpaque(bitmap);
        return {Image::bitmap(std::move(bitmap), opaque), bytes};
    } catch (const Problem&) {
        return {};
    }
}

/// A block of letters as large as it is, in no more pixels than its ink has: most of a block is clear.
Letters::Made trimmed(const Bitmap& block) {
    constexpr int around = 4;
    const Ink ink(block);
    if (ink.empty()) return {};
    Bitmap bitmap = ink.cutOut(block, around);
    const std::size_t bytes = bytesOf(bitmap);
    const auto place = Transform().translated(ink.left - around, ink.top - around);
    Image image = Image::bitmap(std::move(bitmap)).transformed(place);
    return {Image::later({0, 0, double(block.width()), double(block.height())},
                         [image = std::move(image)] { return Image(image); }),
            bytes};
}

/// Letters in whole steps finer, as many as are asked for or as there is room for.
Letters::Made lettered(CaptionPicture::Request request, double finer) {
    for (; finer >= 1; --finer) {
        request.scale = finer;
        request.width = widthOfLetters * finer;
        const auto block = CaptionPicture::bitmap(request);
        if (!block) continue;
        auto made = trimmed(*block);
        if (finer > 1 && double(made.bytes) > mostOfLetters) continue;
        if (made.value) made.value = made.value->transformed(Transform().scaled(1 / finer, 1 / finer));
        return made;
    }
    return {};
}

Pictures::Made drawn(const std::string& glyph, double points) {
    auto made = Glyph::draw(glyph, points);
    if (!made) return {};
    const std::size_t bytes = bytesOf(made->bitmap);
    const auto asAsked = Transform().scaled(1 / made->finer, 1 / made->finer);
    return {Image::bitmap(std::move(made->bitmap)).transformed(asAsked), bytes};
}

/// What a call answers; nothing where there is no memory for it.
template <class Call>
auto ifItCan(const Call& call) -> decltype(call()) {
    try {
        return call();
    } catch (const std::exception&) {
        return {};
    }
}

}

struct PlaybookMedia::Parts {
    Pictures pictures{pictureBounds};
    Videos videos{videoBounds};
    Letters letters{letterBounds};
    Pictures glyphs{glyphBounds};
    Cubes cubes{cubeBounds};
    std::shared_ptr<Cutout::Masks> masks = Cutout::makeMasks();
};

PlaybookMedia::PlaybookMedia() : parts(std::make_unique<Parts>()) {}
PlaybookMedia::~PlaybookMedia() = default;

std::optional<Image> PlaybookMedia::image(const std::filesystem::path& file) {
    const auto known = stamp(file);
    if (!known) return {};
    return ifItCan([&] { return parts->pictures.get(*known, [&] { return read(file); }); });
}

std::shared_ptr<Footage> PlaybookMedia::footage(const std::filesystem::path& file, const std::string& key) {
    const auto known = stamp(file);
    if (!known) return nullptr;
    const auto opened = [&]() -> Videos::Made {
        auto footage = std::make_shared<Footage>(file, mostStillBytes);
        const auto area = std::size_t(footage->area());
        return {std::move(footage), area};
    };
    return ifItCan([&] { return parts->videos.get(key + "|" + *known, opened); });
}

std::optional<Image> PlaybookMedia::text(const std::string& text, const CaptionStyle& style,
                                         const std::string& fonts, double finer) {
    if (text.empty() || text.size() > longestText || !std::isfinite(style.size.value_or(1))) return {};
    CaptionPicture::Request request{.text = text, .style = style, .fonts = fonts};
    request.scale = finer;
    return ifItCan([&] { return parts->letters.get(request, [&] { return lettered(request, finer); }); });
}

std::optional<Image> PlaybookMedia::glyph(const std::string& glyph, double points) {
    if (glyph.size() > Glyph::longest) return {};
    const std::string name = fmt::format("{}|{}", points, glyph);
    return ifItCan([&] { return parts->glyphs.get(name, [&] { return drawn(glyph, points); }); });
}

std::optional<Filters::ColourCube> PlaybookMedia::cube(Colour key) {
    const std::uint32_t name = std::uint32_t{key.red} << 16 | std::uint32_t{key.green} << 8 | key.blue;
    const auto made = [&]() -> Cubes::Made { return {ChromaKey::cube(key)}; };
    return ifItCan([&] { return parts->cubes.get(name, made); });
}

Image PlaybookMedia::cutout(const Image& image) {
    return Cutout::of(image, parts->masks);
}

}
