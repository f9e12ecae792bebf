#include "core/render/stage/PlaybookMedia.h"

#include "core/render/captions/CaptionPicture.h"
#include "core/render/footage/Footage.h"
#include "core/render/stage/Budget.h"
#include "core/render/stage/ChromaKey.h"
#include "core/render/stage/Cutout.h"
#include "core/render/stage/Glyph.h"
#include "core/render/stage/VisibleBounds.h"
#include "platform/base/BoundedCache.h"
#include "platform/base/Problem.h"
#include "platform/media/PictureFile.h"

#include <cmath>
#include <tuple>

#include <fmt/format.h>
#include <sys/stat.h>

namespace murbo {

namespace {

using Pictures = BoundedCache<std::string, std::optional<Image>>;
using Letters = BoundedCache<CaptionPicture::Request, std::optional<Image>>;
using Videos = BoundedCache<std::string, std::shared_ptr<Footage>>;
using Cubes = BoundedCache<std::uint32_t, std::optional<Filters::ColourCube>>;

constexpr std::size_t megabyte = std::size_t{1} << 20;
constexpr Pictures::Bounds pictureBounds{1000, 384 * megabyte};
// One frame may show as many as its budget allows, and the next one shows most of them again.
constexpr Letters::Bounds letterBounds{400, 256 * megabyte};
constexpr Pictures::Bounds glyphBounds{300, 64 * megabyte};
constexpr Cubes::Bounds cubeBounds{16};
// Each holds decoders and the pictures in them. As many stay open as one frame may show, or playing them
// would be opening them.
constexpr auto maxVideos = std::size_t(Stage::Budget().videos);
constexpr Videos::Bounds videoBounds{maxVideos, maxVideos* Stage::Budget::usualVideo};
constexpr auto maxStillBytes = std::int64_t(128 * megabyte);

// Longer texts are refused when they are drawn; there is no need to keep them until then.
constexpr std::size_t longestText = 6000;
// Of one text: many of them stay together, and enlarged letters gain nothing from more.
constexpr double maxOfLetters = 8.0 * megabyte;

/// What identifies a file whatever its name, and differs for one that is put in its place. Nothing where
/// there is no regular file. By the time at which its inode changed it also differs once the file may be
/// read.
std::optional<std::string> stamp(const std::filesystem::path& file) {
    struct stat facts {};
    if (stat(file.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    const auto& [written, changed] = std::tie(facts.st_mtim, facts.st_ctim);
    return fmt::format("{}.{}|{}|{}.{}|{}.{}", facts.st_dev, facts.st_ino, facts.st_size, written.tv_sec,
                       written.tv_nsec, changed.tv_sec, changed.tv_nsec);
}

std::size_t bytesOf(const Bitmap& bitmap) {
    return std::size_t(bitmap.stride()) * std::size_t(bitmap.height());
}

bool isOpaque(const Bitmap& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y) {
        std::uint8_t min = 255;
        for (int x = 0; x < bitmap.width(); ++x) min &= bitmap.row(y)[x * 4 + 3];
        if (min != 255) return false;
    }
    return true;
}

Pictures::Weighed read(const std::filesystem::path& file, double pixels) {
    try {
        Bitmap bitmap = PictureFile::read(file, pixels);
        const std::size_t bytes = bytesOf(bitmap);
        const bool opaque = isOpaque(bitmap);
        return {Image::bitmap(std::move(bitmap), opaque), bytes};
    } catch (const Problem&) {
        return {};
    }
}

/// A block of letters as large as it is, in no more pixels than its ink has: most of a block is clear.
Letters::Weighed trimmed(const Bitmap& block) {
    constexpr int margin = 4;
    const VisibleBounds bounds(block);
    if (bounds.empty()) return {};
    Bitmap bitmap = bounds.cutOut(block, margin);
    const std::size_t bytes = bytesOf(bitmap);
    const auto place = Transform().translated(bounds.left - margin, bounds.top - margin);
    Image image = Image::bitmap(std::move(bitmap)).transformed(place);
    return {Image::later({0, 0, double(block.width()), double(block.height())},
                         [image = std::move(image)] { return Image(image); }),
            bytes};
}

/// Letters drawn `finer` times as fine, or in whole steps less where there is no room.
Letters::Weighed lettered(CaptionPicture::Request request, double finer, double width) {
    for (; finer >= 1; --finer) {
        request.scale = finer;
        request.width = width * finer;
        const auto block = CaptionPicture::bitmap(request);
        if (!block) continue;
        auto made = trimmed(*block);
        if (finer > 1 && double(made.bytes) > maxOfLetters) continue;
        if (made.value) made.value = made.value->transformed(Transform().scaled(1 / finer, 1 / finer));
        return made;
    }
    return {};
}

Pictures::Weighed drawn(const std::string& glyph, double points) {
    auto made = Glyph::draw(glyph, points);
    if (!made) return {};
    const std::size_t bytes = bytesOf(made->bitmap);
    const auto asAsked = Transform().scaled(1 / made->finer, 1 / made->finer);
    return {Image::bitmap(std::move(made->bitmap)).transformed(asAsked), bytes};
}

/// What a call gives; nothing where there is no memory for it.
template <class Call>
auto ifItCan(const Call& call) -> decltype(call()) {
    try {
        return call();
    } catch (const std::exception&) {
        return {};
    }
}

}

struct PlaybookMedia::Caches {
    Pictures pictures{pictureBounds};
    Videos videos{videoBounds};
    Letters letters{letterBounds};
    Pictures glyphs{glyphBounds};
    Cubes cubes{cubeBounds};
    std::shared_ptr<Cutout::Masks> masks = Cutout::makeMasks();
};

PlaybookMedia::PlaybookMedia() : caches(std::make_unique<Caches>()) {}
PlaybookMedia::~PlaybookMedia() = default;

std::optional<Image> PlaybookMedia::image(const std::filesystem::path& file, double pixels) {
    const auto known = stamp(file);
    if (!known) return {};
    const auto key = fmt::format("{}|{}", *known, pixels);
    return ifItCan([&] { return caches->pictures.get(key, [&] { return read(file, pixels); }); });
}

std::shared_ptr<Footage> PlaybookMedia::footage(const std::filesystem::path& file, const std::string& key) {
    const auto known = stamp(file);
    if (!known) return nullptr;
    const auto opened = [&]() -> Videos::Weighed {
        auto footage = std::make_shared<Footage>(file, maxStillBytes);
        const auto area = std::size_t(footage->area());
        return {std::move(footage), area};
    };
    return ifItCan([&] { return caches->videos.get(key + "|" + *known, opened); });
}

std::optional<Image> PlaybookMedia::text(const std::string& text, const CaptionStyle& style,
                                         const std::string& fonts, double finer, double width) {
    if (text.empty() || text.size() > longestText || !std::isfinite(style.size.value_or(1))) return {};
    CaptionPicture::Request request{.text = text, .style = style, .fonts = fonts};
    request.scale = finer;
    request.width = width;
    const auto drawn = [&] { return lettered(request, finer, width); };
    return ifItCan([&] { return caches->letters.get(request, drawn); });
}

std::optional<Image> PlaybookMedia::glyph(const std::string& glyph, double points) {
    if (glyph.size() > Glyph::longest) return {};
    const std::string name = fmt::format("{}|{}", points, glyph);
    return ifItCan([&] { return caches->glyphs.get(name, [&] { return drawn(glyph, points); }); });
}

std::optional<Filters::ColourCube> PlaybookMedia::cube(Colour key) {
    const std::uint32_t name = std::uint32_t{key.red} << 16 | std::uint32_t{key.green} << 8 | key.blue;
    const auto made = [&]() -> Cubes::Weighed { return {ChromaKey::cube(key)}; };
    return ifItCan([&] { return caches->cubes.get(name, made); });
}

Image PlaybookMedia::cutout(const Image& image) {
    return Cutout::of(image, caches->masks);
}

}
